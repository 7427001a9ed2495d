#include "tests/windows/end_to_end/reg_program.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "tests/windows/end_to_end/wait.h"

namespace end_to_end {

namespace {

const std::string Root = "HKLM\\SOFTWARE\\Korvanta";
const std::string Kept = "\"HKLM\\SOFTWARE\\Korvanta before the tests\"";

struct Answer {
  DWORD exitCode;
  std::string sOutput;
};

// What it writes goes into the pipe.
PROCESS_INFORMATION StartReg(const std::string& sArguments, HANDLE hPipe) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = hPipe;
  std::string sCommandLine = "reg " + sArguments;
  PROCESS_INFORMATION process{};
  StartProgram("reg.exe", [&] {
    return CreateProcessA(nullptr, sCommandLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                          nullptr, nullptr, &startup, &process);
  });
  return process;
}

std::string ReadAll(HANDLE hPipe) {
  std::string sText;
  std::array<char, 512> buffer;
  DWORD nRead = 0;
  while (ReadFile(hPipe, buffer.data(), static_cast<DWORD>(buffer.size()), &nRead, nullptr))
    sText.append(buffer.data(), nRead);
  return sText;
}

Answer RunReg(const std::string& sArguments) {
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  HANDLE hRead = nullptr;
  HANDLE hWrite = nullptr;
  CreatePipe(&hRead, &hWrite, &inherited, 0);
  const PROCESS_INFORMATION process = StartReg(sArguments, hWrite);
  CloseHandle(hWrite);
  Answer answer = {0, ReadAll(hRead)};
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &answer.exitCode);
  for (HANDLE h : {hRead, process.hThread, process.hProcess}) CloseHandle(h);
  return answer;
}

void RunRegOrThrow(const std::string& sArguments) {
  const Answer answer = RunReg(sArguments);
  if (answer.exitCode != 0)
    throw std::runtime_error("reg " + sArguments + " failed: " + answer.sOutput);
}

bool Exists(const std::string& sKey) { return RunReg("query " + sKey).exitCode == 0; }

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
