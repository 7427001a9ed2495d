#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace end_to_end {

constexpr const char* FormClass = "TrelinForm";
constexpr const char* AgreementCaption = "Microsoft Product Integration Agreement";
constexpr const char* MenuCaption = "Trelin Setup";

// The launcher, running in a job with the programs that it starts. All of them
// end with the object.
class Launcher {
 public:
  explicit Launcher(const std::filesystem::path& program, const std::wstring& sArguments = L"");
  ~Launcher();
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;

  // Waits for a window of the job and brings it to the front.
  HWND Window(const char* pClass, const std::string& sCaption) const;
  HWND MessageBox(const std::string& sTitle) const { return Window("#32770", sTitle); }

  int StartedPrograms() const;  // so far, by it and by those
  DWORD WaitForEnd() const;     // the exit code; STILL_ACTIVE if it does not end
  HANDLE Process() const { return process_.hProcess; }

 private:
  HWND Find(const std::string& sClass, const std::string& sCaption) const;

  HANDLE hJob_;
  PROCESS_INFORMATION process_{};
};

struct Row {
  HWND hBox, hIcon, hTitle, hDescription, hStatus;
};

// The controls of the menu.
struct Menu {
  explicit Menu(HWND hWindow);

  std::string Text() const;  // a line each: title, status, whether it is selected

  HWND hForm, hList, hScrollBar;
  std::vector<Row> rows;
};

}  // namespace end_to_end
