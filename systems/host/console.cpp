#include "seam/console.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "shared/code_page.h"
#include "systems/host/host_files.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

void Write(const std::string& sText, std::FILE* pOutput) {
  const bool bWritten = std::fwrite(sText.data(), 1, sText.size(), pOutput) == sText.size() &&
                        std::fflush(pOutput) == 0;
  if (!bWritten)
    throw PlatformError("Could not write to the standard output: " + SystemReason(errno) + ".");
}

}  // namespace

std::string WrittenByUser(const std::string& sPath) { return ShownPath(HostPath(sPath)); }

std::unique_ptr<InputFile> OpenStandardInput() { return OpenHostStandardInput(); }

Terminal OutputTerminal() {
  winsize size{};
  if (isatty(STDOUT_FILENO) == 0) return {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) size.ws_col = 0;
  const char* const pName = std::getenv("TERM");
  return {size.ws_col, pName != nullptr && std::string_view(pName) != "dumb"};
}

std::string Utf8Of(const std::string& sText) { return ToUtf8(sText); }

void WriteOutput(const std::string& sUtf8) { Write(sUtf8, stdout); }

void WriteErrorOutput(const std::string& sUtf8) { Write(sUtf8, stderr); }

}  // namespace trelin
