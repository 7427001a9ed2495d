#include "seam/platform.h"

namespace trelin {

namespace {
Platform current;
}  // namespace

void UsePlatform(const Platform& platform) { current = platform; }

Registry& TheRegistry() { return *current.registry; }

StringLibraryLoader& TheStringLibraries() { return *current.libraries; }

System& TheSystem() { return *current.system; }

}  // namespace trelin
