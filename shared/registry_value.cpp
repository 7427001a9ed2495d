#include "shared/registry_value.h"

#include <algorithm>
#include <utility>

#include "shared/code_page.h"

namespace trelin {

namespace {

constexpr std::size_t FewestSlots = 8;

}  // namespace

bool IsSameName(std::string_view sOne, std::string_view sOther) {
  return sOne.size() == sOther.size() &&
         (sOne == sOther ||
          std::equal(sOne.begin(), sOne.end(), sOther.begin(), [](char one, char other) {
            return UpperCase1252(one) == UpperCase1252(other);
          }));
}

// FNV-1a.
std::size_t ValueTable::HashOf(std::string_view sName) {
  std::uint64_t nHash = 0xCBF29CE484222325U;
  for (const char c : sName)
    nHash = (nHash ^ static_cast<unsigned char>(UpperCase1252(c))) * 0x100000001B3U;
  return std::max<std::size_t>(static_cast<std::size_t>(nHash), 1);
}

const ValueTable::Place* ValueTable::Find(std::string_view sName, std::size_t nHash) const {
  if (slots_.empty()) return nullptr;
  for (std::size_t n = First(nHash); slots_[n].nHash != 0; n = Next(n))
    if (slots_[n].nHash == nHash && IsSameName(slots_[n].value->sName, sName))
      return &slots_[n].value;
  return nullptr;
}

void ValueTable::MakeRoom() {
  if (4 * (nUsed_ + 1) <= 3 * slots_.size()) return;
  ValueTable larger;
  larger.slots_.resize(std::max(FewestSlots, 2 * slots_.size()));
  for (const Slot& slot : slots_)
    if (slot.nHash != 0) larger.Add(slot.value, slot.nHash);
  *this = std::move(larger);
}

void ValueTable::Add(Place value, std::size_t nHash) noexcept {
  std::size_t nSlot = First(nHash);
  while (slots_[nSlot].nHash != 0) nSlot = Next(nSlot);
  slots_[nSlot] = {nHash, value};
  ++nUsed_;
}

// A slot behind the free one moves up when a look for its value comes past there.
void ValueTable::Remove(const Place* found) noexcept {
  std::size_t nFree = First(HashOf((*found)->sName));
  while (&slots_[nFree].value != found) nFree = Next(nFree);
  for (std::size_t n = Next(nFree); slots_[n].nHash != 0; n = Next(n)) {
    if (Distance(First(slots_[n].nHash), n) < Distance(nFree, n)) continue;
    slots_[nFree] = slots_[n];
    nFree = n;
  }
  slots_[nFree] = {};
  --nUsed_;
}

}  // namespace trelin
