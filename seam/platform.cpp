#include "seam/platform.h"

#include <utility>

namespace trelin {

namespace {
Platform current;
}  // namespace

PlatformScope::PlatformScope(const Platform& platform)
    : before_(std::exchange(current, platform)) {}

PlatformScope::~PlatformScope() { current = before_; }

Registry& TheRegistry() { return *current.registry; }

StringLibraryLoader& TheStringLibraries() { return *current.libraries; }

System& TheSystem() { return *current.system; }

}  // namespace trelin
