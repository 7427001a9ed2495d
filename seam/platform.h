#pragma once

#include "seam/registry.h"
#include "seam/string_library.h"
#include "seam/system.h"

namespace trelin {

// The implementations that the program runs on. The program has one set at a
// time; the objects belong to whoever called UsePlatform and outlive its use.
struct Platform {
  Registry* registry = nullptr;
  StringLibraryLoader* libraries = nullptr;
  System* system = nullptr;
};

// Called once before Main; tests call it with substitutes.
void UsePlatform(const Platform& platform);

Registry& TheRegistry();
StringLibraryLoader& TheStringLibraries();
System& TheSystem();

}  // namespace trelin
