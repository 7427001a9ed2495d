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

std::string Quoted(const std::filesystem::path& file) { return "\"" + file.string() + "\""; }

void DeleteRoot() {
  if (RunReg("query " + Root).nExitCode == 0) RunRegOrThrow("delete " + Root + " /f");
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

void ImportRecords(const std::filesystem::path& file) { RunRegOrThrow("import " + Quoted(file)); }

EmptyRecords::EmptyRecords() {
  if (RunReg("query " + Root).nExitCode != 0) return;
  before_ = std::filesystem::temp_directory_path() / "Records before the test of Trelin.reg";
  RunRegOrThrow("export " + Root + " " + Quoted(before_) + " /y");
  DeleteRoot();
}

EmptyRecords::~EmptyRecords() {
  try {
    DeleteRoot();
    if (before_.empty()) return;
    ImportRecords(before_);
    std::filesystem::remove(before_);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The records are not what they were: %s\n", error.what());
  }
}

}  // namespace end_to_end
