#include "systems/windows/windows_registry.h"

#include "tests/shared/registry_contract.h"
#include "tests/suite/registry_trees.h"

namespace trelin {
namespace {

INSTANTIATE_TEST_SUITE_P(Windows, RegistryContract,
                         testing::Values([] { return std::make_unique<WindowsRegistry>(); }));
INSTANTIATE_TEST_SUITE_P(Windows, RegistryTrees,
                         testing::Values([] { return std::make_unique<WindowsRegistry>(); }));

}  // namespace
}  // namespace trelin
