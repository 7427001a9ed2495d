#include <cstdlib>
#include <new>

#include "shared/at_exit.h"
#include "shared/registry_file.h"
#include "tests/shared/registry_contract.h"

namespace {

// How many allocations of this thread succeed before all fail; negative: all succeed.
thread_local int nLeft = -1;

void* Allocate(std::size_t nSize) noexcept {
  if (nLeft == 0) return nullptr;
  if (nLeft > 0) --nLeft;
  return std::malloc(nSize == 0 ? 1 : nSize);
}

}  // namespace

void* operator new(std::size_t nSize) {
  if (void* pMemory = Allocate(nSize)) return pMemory;
  throw std::bad_alloc();
}
void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept { return Allocate(nSize); }
void operator delete(void* pMemory) noexcept { std::free(pMemory); }
void operator delete(void* pMemory, std::size_t) noexcept { std::free(pMemory); }

namespace trelin {

namespace {

const std::string LongName(40, 'n');  // has memory of its own

// Whether a change fails when only so many allocations succeed.
template <class Change>
bool LacksMemory(int nAllocations, const Change& change) {
  const AtExit restore([] { nLeft = -1; });
  nLeft = nAllocations;
  try {
    change();
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

TEST(LackOfMemory, InTheMiddleLeavesTheRegistryAsItWas) {
  const struct {
    const char* sWhat;
    void (*change)(MemoryRegistry& registry, RegistryKey hKey);
  } cases[] = {
      {"several levels",
       [](MemoryRegistry& registry, RegistryKey hKey) {
         RegistryKey hNew = RegistryKey::None;
         registry.CreateKey(hKey, LongName + "\\B\\" + LongName, RegistryReadWrite, hNew);
       }},
      {"a handle",
       [](MemoryRegistry& registry, RegistryKey hKey) {
         for (int i = 0; i < 3; ++i) registry.OpenKey(hKey, "", RegistryReadWrite, hKey);
       }},
      {"a value",
       [](MemoryRegistry& registry, RegistryKey hKey) {
         registry.SetValue(hKey, LongName, 1, LongName.data(), 40);
       }},
      {"a value's data",
       [](MemoryRegistry& registry, RegistryKey hKey) {
         registry.SetValue(hKey, "v", 3, LongName.data(), 40);
       }},
      {"another tree", [](MemoryRegistry& registry, RegistryKey) {
         registry.ReplaceTree(ReadRegistryText(WriteRegistryText(registry.Tree()), "test.reg"));
       }}};
  for (const auto& c : cases) {
    MemoryRegistry registry;
    const RegistryKey hKey = Create(registry, Hive, "SOFTWARE\\" + LongName);
    Set(registry, hKey, "v", "x");
    const std::string sBefore = WriteRegistryText(registry.Tree());
    int nFailed = 0;
    for (; LacksMemory(nFailed, [&] { c.change(registry, hKey); }); ++nFailed) {
      EXPECT_EQ(sBefore, WriteRegistryText(registry.Tree())) << c.sWhat << ", " << nFailed;
      EXPECT_EQ("x", Get(registry, hKey, "v")) << c.sWhat << ", " << nFailed;
    }
    EXPECT_GT(nFailed, 0) << c.sWhat;
  }
}

}  // namespace

}  // namespace trelin
