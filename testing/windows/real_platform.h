#pragma once

#include <algorithm>
#include <memory>
#include <string>

#include "shared/code_page.h"
#include "systems/windows/windows_registry.h"
#include "systems/windows/windows_string_library.h"
#include "systems/windows/windows_system.h"

// The platform under test, by names that it has on every platform.
namespace trelin {

using RealLibraries = WindowsStringLibraryLoader;
using RealSystem = WindowsSystem;

inline std::unique_ptr<Registry> RealRegistry(const std::string&) {
  return std::make_unique<WindowsRegistry>();
}

// The path of the program for one in UTF-8.
inline std::string ProgramPath(const std::string& sUtf8) {
  std::string sPath = FromUtf8(sUtf8);
  std::replace(sPath.begin(), sPath.end(), '/', '\\');
  return sPath;
}

}  // namespace trelin
