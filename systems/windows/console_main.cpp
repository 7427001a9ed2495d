#include <windows.h>

#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "seam/console.h"
#include "seam/platform.h"
#include "shared/memory_registry.h"
#include "systems/windows/library_loading.h"
#include "systems/windows/windows_string_library.h"
#include "systems/windows/windows_system.h"

// The library's own one names the exception: that takes 70 KB of the program.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

int main(int argc, char** argv) {
  trelin::RestrictLibraryLoading();
  try {
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, nullptr);
    trelin::WindowsSystem system;
    trelin::MemoryRegistry registry;
    trelin::WindowsStringLibraryLoader libraries;
    const trelin::PlatformScope scope({&registry, &libraries, &system});
    return trelin::RunCommand({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    try {
      trelin::WriteErrorOutput(trelin::Utf8Of(error.what()) + "\n");
    } catch (const std::exception&) {
      return trelin::FailureCode;  // there is nowhere to write
    }
    return trelin::FailureCode;
  }
}
