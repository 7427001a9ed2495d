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

template <typename Text>
std::size_t LineOf(const Text& sText, std::size_t nPosition) {
  const auto begin = sText.begin();
  return 1 + static_cast<std::size_t>(
                 std::count(begin, begin + static_cast<std::ptrdiff_t>(nPosition), '\n'));
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
  if (IsAscii(sBytes)) return std::string(sBytes);
  std::string sText = FromUtf8(sBytes);
  // Where a question mark took a character's place, the way back differs.
  const std::string sBack = ToUtf8(sText);
  const auto [at, back] = std::mismatch(sBytes.begin(), sBytes.end(), sBack.begin(), sBack.end());
  if (at == sBytes.end()) return sText;
  const auto nPosition = static_cast<std::size_t>(at - sBytes.begin());
  throw RegistryFileFault{LineOf(sBytes, nPosition), Utf8Reason(sBytes.substr(nPosition))};
}

std::u16string Units(std::string_view sBytes, bool bHighByteFirst) {
  std::u16string sUnits(sBytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < sUnits.size(); ++i) {
    const auto first = static_cast<unsigned char>(sBytes[2 * i]);
    const auto second = static_cast<unsigned char>(sBytes[2 * i + 1]);
    sUnits[i] = static_cast<char16_t>(bHighByteFirst ? first << 8 | second : second << 8 | first);
  }
  return sUnits;
}

char32_t CodePointAt(std::u16string_view sText, std::size_t nPosition) {
  const char32_t high = sText[nPosition];
  const char32_t low = nPosition + 1 < sText.size() ? sText[nPosition + 1] : 0;
  const bool bPair = (high & 0xFC00) == 0xD800 && (low & 0xFC00) == 0xDC00;
  return bPair ? 0x10000 + ((high & 0x3FF) << 10) + (low & 0x3FF) : high;
}

// Appends sText to sOut up to the first character that the code page lacks,
// and returns that one's position, or the length of sText.
std::size_t AppendUtf16(std::string& sOut, std::u16string_view sText) {
  sOut.reserve(sText.size());
  for (std::size_t i = 0; i < sText.size(); ++i) {
    const char c = sText[i] < 0x80 ? static_cast<char>(sText[i]) : FromUtf16(sText.substr(i, 1))[0];
    if (c == '?' && sText[i] != u'?') return i;
    sOut += c;
  }
  return sText.size();
}

std::string DecodeUtf16Text(std::string_view sBytes, bool bHighByteFirst) {
  const std::u16string sUnits = Units(sBytes, bHighByteFirst);
  std::string sText;
  const std::size_t nPosition = AppendUtf16(sText, sUnits);
  if (nPosition < sUnits.size())
    throw RegistryFileFault{LineOf(sUnits, nPosition), Lacking(CodePointAt(sUnits, nPosition))};
  if (sBytes.size() % 2 != 0)
    throw RegistryFileFault{LineOf(sUnits, sUnits.size()),
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
  const std::u16string sUnits = Units(sBytes, false);
  std::string sText;
  const std::size_t nPosition = AppendUtf16(sText, sUnits);
  if (nPosition < sUnits.size())
    throw RegistryFileFault{nLine, Lacking(CodePointAt(sUnits, nPosition))};
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
