#include <windows.h>

#include <cstdlib>
#include <exception>
#include <string>

#include "seam/entry.h"
#include "seam/platform.h"
#include "systems/windows/library_loading.h"
#include "systems/windows/windows_registry.h"
#include "systems/windows/windows_string_library.h"
#include "systems/windows/windows_system.h"

namespace trelin {

int& ExitCode() {
  static int nExitCode = 0;
  return nExitCode;
}

std::string ProgramName() {
  const std::string sPath = RunningProgram();
  return sPath.substr(sPath.rfind('\\') + 1);
}

}  // namespace trelin

// The library's own one names the exception: that takes 70 KB of the program.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  trelin::RestrictLibraryLoading();
  try {
    // A drive without a disk holds no files; the system is not to ask for one.
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, nullptr);
    trelin::WindowsRegistry registry;
    trelin::WindowsStringLibraryLoader libraries;
    trelin::WindowsSystem system;
    const trelin::PlatformScope scope({&registry, &libraries, &system});
    trelin::Main();
    return trelin::ExitCode();
  } catch (const std::exception& error) {
    MessageBoxA(nullptr, error.what(), trelin::ProgramName().c_str(), MB_ICONERROR);
    return 1;
  }
}
