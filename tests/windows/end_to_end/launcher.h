#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace end_to_end {

// The launcher, running in a job with the programs that it starts. All of them
// end with the object.
class Launcher {
 public:
  explicit Launcher(const std::filesystem::path& program, const std::wstring& sArguments = L"");
  ~Launcher();
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;

  DWORD WaitForEnd() const;  // the exit code; STILL_ACTIVE if it does not end

 private:
  HANDLE hJob_;
  PROCESS_INFORMATION process_{};
};

}  // namespace end_to_end
