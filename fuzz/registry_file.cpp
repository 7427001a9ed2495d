// The input is a registry file. What is read is the same after it was written
// and read again.

#include "shared/registry_file.h"

#include <cstddef>
#include <memory>
#include <string>

#include "fuzz/target.h"
#include "seam/platform_error.h"

namespace trelin {

namespace {

constexpr const char* FilePath = "records.reg";

void CheckSame(const RegistryNode& one, const RegistryNode& other) {
  CheckEqual(one.Name(), other.Name(), "a key keeps its name and its place");
  Check(one.AllValues() == other.AllValues(), "values keep names, types, bytes and order");
  Check(one.KeyCount() == other.KeyCount(), "every key comes back");
  for (std::size_t i = 0; i < one.KeyCount(); ++i) CheckSame(one.Key(i), other.Key(i));
}

// Everything can be found by its name, and belongs where it is.
void CheckNode(const RegistryNode& node) {
  for (const RegistryValue& value : node.AllValues())
    Check(node.FindValue(value.sName) == &value, "a value is found by its name");
  for (std::size_t i = 0; i < node.KeyCount(); ++i) {
    RegistryNode& key = node.Key(i);
    Check(node.FindKey(key.Name()) == &key, "a key is found by its name");
    Check(key.Parent() == &node && key.Depth() <= 512, "a key knows where it is");
    CheckNode(key);
  }
}

std::unique_ptr<RegistryNode> Read(std::string_view sFile) {
  try {
    return ReadRegistryText(sFile, FilePath);
  } catch (const PlatformError& error) {
    const std::string sBegin = std::string("Could not read the registry file \"") + FilePath;
    Check(std::string(error.what()).starts_with(sBegin + "\": line "),
          "the error names the file and the line");
    return nullptr;
  }
}

}  // namespace

void Try(std::string_view sInput) {
  const std::unique_ptr<RegistryNode> tree = Read(sInput);
  if (!tree) return;
  CheckNode(*tree);
  const std::string sWritten = WriteRegistryText(*tree);
  const std::unique_ptr<RegistryNode> again = ReadRegistryText(sWritten, FilePath);
  CheckSame(*tree, *again);
  CheckEqual(sWritten, WriteRegistryText(*again), "the same tree is written alike");
}

}  // namespace trelin
