#include "tests/windows/end_to_end/reg_program.h"

#include <array>
#include <cstdio>
#include <regex>
#include <stdexcept>

namespace end_to_end {

namespace {

const std::string Root = "HKLM\\SOFTWARE\\Korvanta";
const std::string Kept = "\"HKLM\\SOFTWARE\\Korvanta before the tests\"";

struct Answer {
  int nExitCode;
  std::string sOutput;
};

Answer AskReg(const std::string& sArguments) {
  std::FILE* const pOutput = _popen(("reg " + sArguments + " 2>&1").c_str(), "r");
  if (pOutput == nullptr) throw std::runtime_error("reg.exe does not start");
  std::string sOutput;
  std::array<char, 512> buffer;
  while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), pOutput) != nullptr)
    sOutput += buffer.data();
  return {_pclose(pOutput), sOutput};
}

bool Exists(const std::string& sKey) { return AskReg("query " + sKey).nExitCode == 0; }

void Move(const std::string& sFrom, const std::string& sTo) {
  RunReg("copy " + sFrom + " " + sTo + " /s /f");
  RunReg("delete " + sFrom + " /f");
}

}  // namespace

// A value's line holds four spaces, the name, four spaces, the type, four
// spaces and the text.
std::string ReadKey(const std::string& sKey) {
  const std::string sOutput = AskReg("query " + Root + "\\" + sKey).sOutput;
  const std::regex value("    (.*)    REG_SZ    ([^\r\n]*)");
  std::string sTexts;
  for (std::sregex_iterator match(sOutput.begin(), sOutput.end(), value), end; match != end;
       ++match)
    sTexts += match->format("$1=$2\n");
  return sTexts;
}

void RunReg(const std::string& sArguments) {
  const Answer answer = AskReg(sArguments);
  if (answer.nExitCode != 0)
    throw std::runtime_error("reg " + sArguments + " failed: " + answer.sOutput);
}

// Copied within the registry: a file of the registry editor's format may lose
// the end of a text without a NUL, as the launcher writes them. What a run that
// was killed has kept is kept on.
EmptyRecords::EmptyRecords() {
  if (!Exists(Root)) return;
  Exists(Kept) ? RunReg("delete " + Root + " /f") : Move(Root, Kept);
}

EmptyRecords::~EmptyRecords() {
  try {
    if (Exists(Root)) RunReg("delete " + Root + " /f");
    if (Exists(Kept)) Move(Kept, Root);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "The records are not what they were: %s\n", error.what());
  }
}

}  // namespace end_to_end
