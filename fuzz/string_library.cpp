// The input is a string library.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "fuzz/target.h"
#include "shared/code_page.h"
#include "shared/pe_string_table.h"

namespace trelin {

namespace {

void LoadStrings(const PeStringTable& table, std::size_t nFileSize) {
  const PeStringTable copy = table;  // has bytes of its own
  const auto load = [&](std::uint16_t nId) {
    const std::u16string sText = table.Text(nId);
    Check(2 * sText.size() + 2 <= nFileSize, "a text comes out of the file");
    Check(FromUtf16(sText).size() <= sText.size(), "a character has one byte");
  };
  // Sixteen texts lie in a bundle: those of two, and one of each other of the block.
  for (std::uint16_t nId = 35008; nId < 35040; ++nId) load(nId);
  for (std::uint16_t nId = 35047; nId < 36000; nId += 16) load(nId);
  for (const int nId : {0, 1, 15, 16, 17, 32767, 32768, 34999, 35000, 36000, 65535})
    load(static_cast<std::uint16_t>(nId));
  Check(table.Text(35000) == copy.Text(35000), "a copy has the same texts");
}

}  // namespace

void Try(std::string_view sInput) {
  const std::optional<PeStringTable> table = PeStringTable::Parse(std::string(sInput));
  if (table) LoadStrings(*table, sInput.size());
}

}  // namespace trelin
