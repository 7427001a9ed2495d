#include "tests/windows/end_to_end/reg_program.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace end_to_end {

namespace {

const std::string Root = "HKLM\\SOFTWARE\\Korvanta";
const std::string Kept = "\"HKLM\\SOFTWARE\\Korvanta before the tests\"";

struct Answer {
  int nExitCode;
  std::string sOutput;
};

Answer RunReg(const std::string& sArguments) {
  std::FILE* const pPipe = _popen(("reg " + sArguments + " 2>&1").c_str(), "rt");
  if (pPipe == nullptr) throw std::system_error(errno, std::generic_category(), "reg.exe");
  Answer answer{};
  std::array<char, 512> buffer;
  while (std::fgets(buffer.data(), buffer.size(), pPipe)) answer.sOutput += buffer.data();
  answer.nExitCode = _pclose(pPipe);
  return answer;
}

void RunRegOrThrow(const std::string& sArguments) {
  const Answer answer = RunReg(sArguments);
  if (answer.nExitCode != 0)
    throw std::runtime_error("reg " + sArguments + " failed: " + answer.sOutput);
}

bool Exists(const std::string& sKey) { return RunReg("query " + sKey).nExitCode == 0; }

void Move(const std::string& sFrom, const std::string& sTo) {
  RunRegOrThrow("copy " + sFrom + " " + sTo + " /s /f");
  RunRegOrThrow("delete " + sFrom + " /f");
}

}  // namespace

// A value's line holds four spaces, the name, four spaces, the type, four
// spaces and the text.
std::map<std::string, std::string> ReadKey(const std::string& sKey) {
  std::istringstream lines(RunReg("query " + Root + "\\" + sKey).sOutput);
  std::map<std::string, std::string> values;
  std::string sLine;
  std::smatch match;
  while (std::getline(lines, sLine)) {
    if (std::regex_search(sLine, match, std::regex("^    (.*)    REG_SZ    ([^\r]*)")))
      values[match[1]] = match[2];
  }
  return values;
}

void ImportRecords(const std::filesystem::path& file) {
  RunRegOrThrow("import \"" + file.string() + "\"");
}

// Copied within the registry: a file of the registry editor's format may lose
// the end of a text without a NUL, as the launcher writes them. What a run that
// was killed has kept is kept on.
EmptyRecords::EmptyRecords() {
  if (!Exists(Root)) return;
  if (Exists(Kept))
    RunRegOrThrow("delete " + Root + " /f");
  else
    Move(Root, Kept);
}

EmptyRecords::~EmptyRecords() {
  try {
    if (Exists(Root)) RunRegOrThrow("delete " + Root + " /f");
    if (Exists(Kept)) Move(Kept, Root);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The records are not what they were: %s\n", error.what());
  }
}

}  // namespace end_to_end
