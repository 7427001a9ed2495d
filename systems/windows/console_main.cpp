#include <windows.h>

#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/memory_registry.h"
#include "systems/windows/library_loading.h"
#include "systems/windows/windows_string_library.h"
#include "systems/windows/windows_system.h"
#include "systems/windows/windows_text.h"

// The library's own one names the exception: that takes 70 KB of the program.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

namespace trelin {

namespace {

// Most arguments that the code page lacks letters of are paths.
std::string Argument(const wchar_t* pArgument) {
  std::string sArgument = PathInCodePage(pArgument);
  if (sArgument.empty() && *pArgument != 0)
    throw PlatformError("use the argument", FromWide(pArgument),
                        "it holds characters that the program cannot use");
  return sArgument;
}

}  // namespace

}  // namespace trelin

int wmain(int argc, wchar_t** argv) {
  trelin::RestrictLibraryLoading();
  try {
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, nullptr);
    trelin::WindowsSystem system;
    trelin::MemoryRegistry registry;
    trelin::WindowsStringLibraryLoader libraries;
    const trelin::PlatformScope scope({&registry, &libraries, &system});
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(trelin::Argument(argv[i]));
    return trelin::RunCommand(arguments);
  } catch (const std::exception& error) {
    try {
      trelin::WriteErrorOutput(trelin::Utf8Of(error.what()) + "\n");
    } catch (const std::exception&) {
      return trelin::FailureCode;  // there is nowhere to write
    }
    return trelin::FailureCode;
  }
}
