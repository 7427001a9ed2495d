#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace trelin {

struct RegistryValue {
  std::string sName;  // empty: the default value
  std::uint32_t lType = 0;
  std::string sData;  // the bytes as they are, a terminating NUL included

  bool operator==(const RegistryValue&) const = default;
};

// Names match in any letter case of the code page 1252.
bool IsSameName(std::string_view sOne, std::string_view sOther);

// Finds the values of a list by their names. Each stands in a slot: the first free one
// from the one on that its name's hash gives. Without memory of its own for each value,
// as std::unordered_set has it, thousands of exports are read a tenth faster.
class ValueTable {
 public:
  using Place = std::list<RegistryValue>::iterator;

  static std::size_t HashOf(std::string_view sName);  // never 0

  // Null when there is none of that name, whose hash is given.
  const Place* Find(std::string_view sName, std::size_t nHash) const;

  // Adding a value: room first, which may throw std::bad_alloc and changes nothing then.
  void MakeRoom();
  void Add(Place value, std::size_t nHash) noexcept;
  void Remove(const Place* found) noexcept;  // which Find has given

 private:
  struct Slot {
    std::size_t nHash = 0;  // 0: free
    Place value;
  };

  std::size_t First(std::size_t nHash) const { return nHash & (slots_.size() - 1); }
  std::size_t Next(std::size_t nSlot) const { return First(nSlot + 1); }
  std::size_t Distance(std::size_t nFrom, std::size_t nTo) const { return First(nTo - nFrom); }

  std::vector<Slot> slots_;  // none, or a power of two; a quarter of them is free
  std::size_t nUsed_ = 0;
};

}  // namespace trelin
