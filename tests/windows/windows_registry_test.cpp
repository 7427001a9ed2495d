#include "platform/windows/windows_registry.h"

#include "tests/platform/registry_contract.h"
#include "tests/products/registry_trees.h"

namespace trelin {
namespace {

INSTANTIATE_TEST_SUITE_P(Windows, RegistryContract,
                         testing::Values([] { return std::make_unique<WindowsRegistry>(); }));
INSTANTIATE_TEST_SUITE_P(Windows, RegistryTrees,
                         testing::Values([] { return std::make_unique<WindowsRegistry>(); }));

}  // namespace
}  // namespace trelin
