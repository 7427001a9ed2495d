#include "shared/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>

namespace trelin {

namespace {

// The codes 0x80 to 0x9F; all others are the code points of the same number.
constexpr std::array<char16_t, 32> HighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char Upper(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 0x20);
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 0x20);
  if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<unsigned char>(c - 0x10);
  return c == 0xFF ? 0x9F : c;
}

constexpr std::array<char, 256> MakeUpperTable() {
  std::array<char, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i)
    table[i] = static_cast<char>(Upper(static_cast<unsigned char>(i)));
  return table;
}

char FromCodePoint(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  const auto found = std::find(HighControls.begin(), HighControls.end(), code);
  return found == HighControls.end()
             ? '?'
             : static_cast<char>(0x80 + std::distance(HighControls.begin(), found));
}

void AppendUtf8(std::string& sOut, char32_t code) {
  if (code < 0x80) {
    sOut += static_cast<char>(code);
  } else if (code < 0x800) {
    sOut += static_cast<char>(0xC0 | (code >> 6));
    sOut += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    if (code < 0x10000) {
      sOut += static_cast<char>(0xE0 | (code >> 12));
    } else {
      sOut += static_cast<char>(0xF0 | (code >> 18));
      sOut += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    }
    sOut += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    sOut += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// The number of bytes that a lead byte announces; 0 for no lead byte.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool IsScalar(char32_t code, std::size_t nLength) {
  constexpr std::array<char32_t, 5> Lowest = {0, 0, 0x80, 0x800, 0x10000};
  return code >= Lowest[nLength] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Decodes the character that sText begins with and returns its length, or 0
// when it begins with no well-formed one.
std::size_t DecodeUtf8(std::string_view sText, char32_t& code) {
  const auto lead = static_cast<unsigned char>(sText[0]);
  const std::size_t nLength = SequenceLength(lead);
  if (nLength < 2 || nLength > sText.size()) {
    code = lead;
    return nLength == 1 ? 1 : 0;
  }
  code = lead & (0x7FU >> nLength);
  for (std::size_t i = 1; i < nLength; ++i) {
    const auto c = static_cast<unsigned char>(sText[i]);
    if ((c & 0xC0) != 0x80) return 0;
    code = (code << 6) | (c & 0x3FU);
  }
  return IsScalar(code, nLength) ? nLength : 0;
}

bool IsPair(char16_t high, char16_t low) {
  return (high & 0xFC00) == 0xD800 && (low & 0xFC00) == 0xDC00;
}

// The first one of a text, which it loses; a surrogate that stands alone is its number.
char32_t TakeCodePoint(std::u16string_view& sText) {
  char32_t code = sText[0];
  const bool bPair = sText.size() > 1 && IsPair(sText[0], sText[1]);
  if (bPair) code = 0x10000 + ((code - 0xD800) << 10) + (sText[1] - 0xDC00U);
  sText.remove_prefix(bPair ? 2 : 1);
  return code;
}

}  // namespace

constexpr std::array<char, 256> UpperCaseTable1252 = MakeUpperTable();

std::string UpperCase1252(std::string_view sText) {
  std::string sUpper(sText);
  MakeUpperCase1252(sUpper);
  return sUpper;
}

void MakeUpperCase1252(std::span<char> text) {
  for (char& c : text) c = UpperCase1252(c);
}

bool IsAscii(std::string_view sText) {
  constexpr std::uint64_t HighBits = 0x8080808080808080U;
  std::uint64_t all = 0;
  for (std::uint64_t eight = 0; sText.size() >= sizeof eight; sText.remove_prefix(sizeof eight)) {
    std::memcpy(&eight, sText.data(), sizeof eight);
    all |= eight;
  }
  for (const char c : sText) all |= static_cast<unsigned char>(c);
  return (all & HighBits) == 0;
}

char32_t CodePoint1252(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code >= 0x80 && code <= 0x9F ? HighControls[code - 0x80U] : code;
}

std::string ToUtf8(std::string_view sText1252) {
  if (IsAscii(sText1252)) return std::string(sText1252);
  std::string sOut;
  sOut.reserve(sText1252.size());
  for (const char c : sText1252) AppendUtf8(sOut, CodePoint1252(c));
  return sOut;
}

std::string FromUtf8(std::string_view sUtf8) {
  if (IsAscii(sUtf8)) return std::string(sUtf8);
  std::string sOut;
  sOut.reserve(sUtf8.size());
  while (!sUtf8.empty()) {
    char32_t code = 0;
    const std::size_t nLength = DecodeUtf8(sUtf8, code);
    sOut += nLength == 0 ? '?' : FromCodePoint(code);
    sUtf8.remove_prefix(std::max<std::size_t>(nLength, 1));
  }
  return sOut;
}

std::string FromUtf16(std::u16string_view sUtf16) {
  std::string sOut;
  sOut.reserve(sUtf16.size());
  while (!sUtf16.empty()) sOut += FromCodePoint(TakeCodePoint(sUtf16));
  return sOut;
}

std::string Utf8FromUtf16(std::u16string_view sUtf16) {
  std::string sOut;
  while (!sUtf16.empty()) AppendUtf8(sOut, TakeCodePoint(sUtf16));
  return sOut;
}

}  // namespace trelin
