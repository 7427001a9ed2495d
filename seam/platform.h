#pragma once

#include "seam/registry.h"
#include "seam/string_library.h"
#include "seam/system.h"

namespace trelin {

// A set of implementations that the program runs on.
struct Platform {
  Registry* registry = nullptr;
  StringLibraryLoader* libraries = nullptr;
  System* system = nullptr;
};

// Has the program use a set for as long as this lives, and then the one that it
// used before. The implementations belong to whoever made them and outlive it.
class PlatformScope {
 public:
  explicit PlatformScope(const Platform& platform);
  ~PlatformScope();
  PlatformScope(const PlatformScope&) = delete;
  PlatformScope& operator=(const PlatformScope&) = delete;

 private:
  Platform before_;
};

// Of the set in use. There must be one, with that implementation in it.
Registry& TheRegistry();
StringLibraryLoader& TheStringLibraries();
System& TheSystem();

}  // namespace trelin
