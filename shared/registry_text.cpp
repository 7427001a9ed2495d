#include "shared/registry_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "shared/code_page.h"

namespace trelin {

namespace {

std::string Lacking(char32_t code) {
  return "the character U+" + UpperCase1252(HexNumber(code, 4)) +
         " is not in the code page Windows-1252";
}

// The line in which a text ends.
std::size_t LastLine(std::string_view sText) {
  return 1 + static_cast<std::size_t>(std::count(sText.begin(), sText.end(), '\n'));
}

// Says what the bytes at the start of sRest are, which are no plain ASCII.
std::string Utf8Reason(std::string_view sRest) {
  const auto lead = static_cast<unsigned char>(sRest[0]);
  const std::size_t nLength = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  const std::string_view sCharacter = sRest.substr(0, nLength);
  if (FromUtf8(sCharacter).size() != 1 || sCharacter.size() != nLength)
    return "there are bytes that are no UTF-8; save the file as UTF-8";
  char32_t code = lead & (0x7FU >> nLength);
  for (const char c : sCharacter.substr(1))
    code = (code << 6) | (static_cast<unsigned char>(c) & 0x3FU);
  return Lacking(code);
}

std::string DecodeUtf8Text(std::string_view sBytes) {
  std::string sText = FromUtf8(sBytes);
  // Where a question mark took a character's place, the way back differs.
  const std::string sBack = ToUtf8(sText);
  const auto [at, back] = std::mismatch(sBytes.begin(), sBytes.end(), sBack.begin(), sBack.end());
  if (at == sBytes.end()) return sText;
  const auto nPosition = static_cast<std::size_t>(at - sBytes.begin());
  throw RegistryFileFault{LastLine(sBytes.substr(0, nPosition)),
                          Utf8Reason(sBytes.substr(nPosition))};
}

// The units of a text in UTF-16, where they lie.
class Units {
 public:
  Units(std::string_view sBytes, bool bHighByteFirst)
      : sBytes_(sBytes), nHigh_(bHighByteFirst ? 0 : 1) {}

  std::size_t Count() const { return sBytes_.size() / 2; }
  char16_t At(std::size_t n) const {
    return static_cast<char16_t>(Byte(2 * n + nHigh_) << 8 | Byte(2 * n + 1 - nHigh_));
  }

 private:
  unsigned Byte(std::size_t n) const { return static_cast<unsigned char>(sBytes_[n]); }

  std::string_view sBytes_;
  std::size_t nHigh_;  // where the high byte of a unit stands
};

char32_t CodePointAt(const Units& units, std::size_t n) {
  const char32_t high = units.At(n);
  const char32_t low = n + 1 < units.Count() ? units.At(n + 1) : 0;
  const bool bPair = (high & 0xFC00) == 0xD800 && (low & 0xFC00) == 0xDC00;
  return bPair ? 0x10000 + ((high & 0x3FF) << 10) + (low & 0x3FF) : high;
}

// The text up to the first character that the code page lacks.
std::string FromUnits(const Units& units) {
  std::string sText(units.Count(), '\0');
  for (std::size_t n = 0; n < sText.size(); ++n) {
    const char16_t unit = units.At(n);
    const char c = unit < 0x80 ? static_cast<char>(unit) : FromUtf16({&unit, 1})[0];
    if (c == '?' && unit != u'?')
      sText.resize(n);
    else
      sText[n] = c;
  }
  return sText;
}

std::string DecodeUtf16Text(std::string_view sBytes, bool bHighByteFirst) {
  const Units units(sBytes, bHighByteFirst);
  std::string sText = FromUnits(units);
  if (sText.size() < units.Count())
    throw RegistryFileFault{LastLine(sText), Lacking(CodePointAt(units, sText.size()))};
  if (sBytes.size() % 2 != 0)
    throw RegistryFileFault{LastLine(sText),
                            "the file is UTF-16 but ends in the middle of a character"};
  return sText;
}

}  // namespace

std::string DecodeRegistryText(std::string_view sBytes) {
  if (sBytes.starts_with("\xFF\xFE")) return DecodeUtf16Text(sBytes.substr(2), false);
  if (sBytes.starts_with("\xFE\xFF")) return DecodeUtf16Text(sBytes.substr(2), true);
  return DecodeUtf8Text(sBytes.substr(sBytes.starts_with("\xEF\xBB\xBF") ? 3 : 0));
}

std::string DecodeUtf16Data(std::string_view sBytes, std::size_t nLine) {
  if (sBytes.size() % 2 != 0)
    throw RegistryFileFault{nLine,
                            "a text in hexadecimal form is UTF-16 and has two bytes a character, "
                            "but this one has an odd number of bytes"};
  const Units units(sBytes, false);
  std::string sText = FromUnits(units);
  if (sText.size() < units.Count())
    throw RegistryFileFault{nLine, Lacking(CodePointAt(units, sText.size()))};
  return sText;
}

std::string HexNumber(std::uint32_t lNumber, std::size_t nDigits) {
  std::array<char, 8> digits{};
  const auto result = std::to_chars(digits.begin(), digits.end(), lNumber, 16);
  const auto nUsed = static_cast<std::size_t>(result.ptr - digits.data());
  return std::string(std::max(nDigits, nUsed) - nUsed, '0').append(digits.data(), nUsed);
}

std::string EncodeUtf16Data(std::string_view sText1252) {
  std::string sBytes;
  sBytes.reserve(2 * sText1252.size());
  for (const char c : sText1252) {
    const char32_t code = CodePoint1252(c);
    sBytes += static_cast<char>(code & 0xFF);
    sBytes += static_cast<char>(code >> 8);
  }
  return sBytes;
}

}  // namespace trelin
