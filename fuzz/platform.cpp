#include "fuzz/platform.h"

namespace trelin {

namespace {

// No key below a hive, and no value in one.
bool IsEmpty(const RegistryNode& tree) {
  for (std::size_t i = 0; i < tree.KeyCount(); ++i)
    if (tree.Key(i).KeyCount() > 0 || !tree.Key(i).AllValues().empty()) return false;
  return true;
}

}  // namespace

FakePlatform& CleanPlatform() {
  static FakePlatform platform;
  platform.faults.bCounts = false;
  platform.system.files.clear();
  platform.system.messages.clear();
  platform.system.nBeeps = 0;
  platform.faults.log.clear();
  platform.registry.ClearFaults();
  if (!IsEmpty(platform.registry.Tree())) platform.registry.ReplaceTree(RegistryNode::NewTree());
  return platform;
}

}  // namespace trelin
