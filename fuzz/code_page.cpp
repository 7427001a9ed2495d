// The input is text in each of the encodings.

#include "shared/code_page.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <string>

#include "fuzz/target.h"
#include "shared/registry_text.h"

namespace trelin {

namespace {

std::u16string Units(std::string_view sBytes) {
  std::u16string sUnits;
  for (std::size_t i = 0; i + 1 < sBytes.size(); i += 2)
    sUnits += static_cast<char16_t>(static_cast<unsigned char>(sBytes[i]) << 8 |
                                    static_cast<unsigned char>(sBytes[i + 1]));
  return sUnits;
}

bool IsCharacter(char16_t c) {
  static const std::bitset<65536> characters = [] {
    std::bitset<65536> all;
    for (int i = 0; i < 256; ++i) all.set(CodePoint1252(static_cast<char>(i)));
    return all;
  }();
  return characters[c];
}

void CheckUtf16(const std::u16string& sUnits) {
  const std::string sText = FromUtf16(sUnits);
  Check(sText.size() <= sUnits.size(), "a character has one byte");
  if (!std::all_of(sUnits.begin(), sUnits.end(), IsCharacter)) return;
  Check(std::equal(sText.begin(), sText.end(), sUnits.begin(), sUnits.end(),
                   [](char c, char16_t unit) { return CodePoint1252(c) == unit; }),
        "characters of the code page are kept");
}

}  // namespace

void Try(std::string_view sInput) {
  const std::string sText(sInput);
  CheckEqual(sText, FromUtf8(ToUtf8(sText)), "every text comes back from UTF-8");
  CheckEqual(sText, DecodeUtf16Data(EncodeUtf16Data(sText), 1), "and from UTF-16");
  CheckUtf16(Units(sInput));

  const std::string sDecoded = FromUtf8(sInput);
  Check(sDecoded.size() <= sInput.size(), "a character has one byte");
  Check(sDecoded.find('?') != std::string::npos || ToUtf8(sDecoded) == sInput,
        "only a question mark loses what it stands for");

  const std::string sUpper = UpperCase1252(sInput);
  CheckEqual(sUpper, UpperCase1252(sUpper), "upper case stays as it is");
}

}  // namespace trelin
