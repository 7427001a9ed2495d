#include "seam/console.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QSysInfo>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "shared/code_page.h"
#include "systems/host/file_registry.h"
#include "systems/host/file_replacement.h"
#include "systems/host/host_files.h"
#include "systems/host/host_path.h"
#include "systems/host/toolkit_measure.h"

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

std::unique_ptr<Registry> OpenRegistry() {
  return std::make_unique<FileRegistry>(FileRegistry::DefaultPath());
}

std::string ComputerName() { return FromQString(QSysInfo::machineHostName()); }

std::string Sha256Of(const std::string& sBytes) {
  const QByteArray bytes = QByteArray::fromStdString(sBytes);
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

std::unique_ptr<InputFile> OpenStandardInput() { return OpenHostStandardInput(); }

void ReplaceWholeFile(const std::string& sPath, const std::string& sBytes) {
  const std::string sTarget = LinkTarget(HostPath(sPath));
  int nReason = access(sTarget.c_str(), W_OK) == 0 ? 0 : errno;
  if (nReason == 0) PutInPlace(sTarget, sBytes, nReason);
  if (nReason != 0) throw HostError("write the file", sTarget, nReason);
}

void MakeFolder(const std::string& sPath) {
  const std::string sFolder = HostPath(sPath);
  if (mkdir(sFolder.c_str(), 0777) != 0 && errno != EEXIST)
    throw HostError("make the folder", sFolder, errno);
}

void WriteNewFile(const std::string& sPath, const std::string& sBytes, bool bProgram) {
  const std::string sFile = HostPath(sPath);
  const FileDescriptor file(
      open(sFile.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, bProgram ? 0777 : 0666));
  if (file.Get() < 0 || !WriteAll(file.Get(), sBytes))
    throw HostError("write the file", sFile, errno);
}

std::string CommandFileEnd() { return ".sh"; }

bool ErrorsAreSeen() { return isatty(STDERR_FILENO) != 0; }

Terminal OutputTerminal() {
  winsize size{};
  if (isatty(STDOUT_FILENO) == 0) return {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) size.ws_col = 0;
  const char* const pName = std::getenv("TERM");
  return {size.ws_col, pName != nullptr && std::string_view(pName) != "dumb"};
}

int AnsiCodePage() { return 1252; }

std::string AnsiOf(const std::string& sUtf8) { return FromUtf8(sUtf8); }

std::string Utf8Of(const std::string& sText) { return ToUtf8(sText); }

void WriteOutput(const std::string& sUtf8) { Write(sUtf8, stdout); }

void WriteErrorOutput(const std::string& sUtf8) { Write(sUtf8, stderr); }

}  // namespace trelin
