#pragma once

#include <memory>
#include <string>

#include "systems/host/file_registry.h"
#include "systems/host/host_path.h"
#include "systems/host/host_string_library.h"
#include "systems/host/host_system.h"

// The platform under test, by names that it has on every platform; ProgramPath
// is the platform's own.
namespace trelin {

using RealLibraries = HostStringLibraryLoader;

class RealSystem : public HostSystem {
 public:
  RealSystem() : HostSystem(0, nullptr) {}
};

// A registry that is kept in a file has it in the folder of this path.
inline std::unique_ptr<Registry> RealRegistry(const std::string& sFolder) {
  return std::make_unique<FileRegistry>(sFolder + "registry.reg");
}

}  // namespace trelin
