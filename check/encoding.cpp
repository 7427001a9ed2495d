#include "check/encoding.h"

#include <algorithm>
#include <utility>

#include "seam/console.h"
#include "shared/code_page.h"

namespace trelin {

namespace {

unsigned char Byte(std::string_view sText, std::size_t n) {
  return n < sText.size() ? static_cast<unsigned char>(sText[n]) : 0;
}

bool IsAsciiByte(unsigned char c) { return c < 0x80; }

// The length of the UTF-8 character of more than one byte at nAt; 0 when there
// is none.
std::size_t Utf8Length(std::string_view sText, std::size_t nAt) {
  const unsigned char c = Byte(sText, nAt);
  const std::size_t nLength = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : 2;
  if (c < 0xC2 || c > 0xF4) return 0;
  for (std::size_t n = 1; n < nLength; ++n)
    if ((Byte(sText, nAt + n) & 0xC0U) != 0x80U) return 0;
  return nLength;
}

// A text in UTF-8; nothing when the code page lacks one of its characters.
std::optional<std::string> WholeInCodePage(const std::string& sUtf8) {
  std::string sText = AnsiOf(sUtf8);
  return Utf8Of(sText) == sUtf8 ? std::optional(std::move(sText)) : std::nullopt;
}

// Whether UTF-8 is meant although the file is in the code page: the characters are
// such as the code page has, too.
bool IsMeantAsUtf8(std::string_view sLine) {
  return IsAscii(sLine) || (IsUtf8(sLine) && WholeInCodePage(std::string(sLine)));
}

// The first character of a text in UTF-8 that the code page lacks.
std::optional<ForeignText> FindLacking(std::string_view sUtf8) {
  std::size_t nLength = 1;
  for (std::size_t n = 0; n < sUtf8.size(); n += nLength) {
    nLength = IsAsciiByte(Byte(sUtf8, n)) ? 1 : std::max<std::size_t>(1, Utf8Length(sUtf8, n));
    const std::string_view sCharacter = sUtf8.substr(n, nLength);
    if (nLength > 1 && !WholeInCodePage(std::string(sCharacter)))
      return ForeignText{n, nLength, "has a character that the ANSI code page lacks", true};
  }
  return std::nullopt;
}

// Codes that a code page leaves open stand for the control characters of that number.
bool StandsForNothing(unsigned char c) {
  if (c < 0x80 || c > 0x9F) return false;
  const std::string sUtf8 = Utf8Of({static_cast<char>(c)});
  return sUtf8.size() == 2 && sUtf8[0] == '\xC2';
}

char16_t UnitAt(std::string_view sFile, std::size_t n, bool bLowByteFirst) {
  const unsigned nFirst = Byte(sFile, n);
  const unsigned nSecond = Byte(sFile, n + 1);
  return static_cast<char16_t>(bLowByteFirst ? nFirst | (nSecond << 8U) : (nFirst << 8U) | nSecond);
}

std::u16string Utf16Of(std::string_view sFile) {
  const bool bMarked = sFile.starts_with("\xFF\xFE") || sFile.starts_with("\xFE\xFF");
  const bool bLowByteFirst = sFile.starts_with('\xFF') || (!bMarked && Byte(sFile, 0) != 0);
  std::u16string sUnits;
  for (std::size_t n = bMarked ? 2 : 0; n + 1 < sFile.size(); n += 2)
    sUnits += UnitAt(sFile, n, bLowByteFirst);
  return sUnits;
}

bool IsControl(unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7F; }

bool IsPlain(std::string_view sText) {
  return std::all_of(sText.begin(), sText.end(),
                     [](char c) { return (c >= ' ' && c < 0x7F) || c == '\t'; });
}

std::string InHex(unsigned char c) {
  const char* const pDigits = "0123456789ABCDEF";
  return {pDigits[c >> 4U], pDigits[c & 0xFU]};
}

}  // namespace

bool IsUtf16(std::string_view sFile) {
  if (sFile.starts_with("\xFF\xFE") || sFile.starts_with("\xFE\xFF")) return true;
  const std::string_view sBegin = sFile.substr(0, 64);
  const auto nZeros = static_cast<std::size_t>(std::count(sBegin.begin(), sBegin.end(), '\0'));
  return sBegin.size() >= 4 && nZeros >= sBegin.size() / 2 - 1;
}

bool IsUtf8(std::string_view sText) {
  if (IsAscii(sText)) return true;  // as most are
  for (std::size_t n = 0; n < sText.size();) {
    const std::size_t nLength = IsAsciiByte(Byte(sText, n)) ? 1 : Utf8Length(sText, n);
    if (nLength == 0) return false;
    n += nLength;
  }
  return true;
}

std::optional<std::string> InCodePage(std::string_view sFile) {
  if (IsUtf16(sFile)) {
    const std::u16string sUnits = Utf16Of(sFile);
    const bool bText = sUnits.find(u'\0') == std::u16string::npos;
    return bText ? WholeInCodePage(Utf8FromUtf16(sUnits)) : std::nullopt;
  }
  if (sFile.starts_with(Utf8Mark)) sFile.remove_prefix(Utf8Mark.size());
  return IsUtf8(sFile) ? WholeInCodePage(std::string(sFile)) : std::nullopt;
}

std::string SaveInCodePage() {
  return "Save the file in the ANSI code page (Windows-" + std::to_string(AnsiCodePage()) + ").";
}

std::optional<ForeignText> FindForeignText(std::string_view sLine, bool bFileIsUtf8) {
  if (IsPlain(sLine)) return std::nullopt;  // as most are
  const bool bUtf8 = bFileIsUtf8 || IsMeantAsUtf8(sLine);
  if (auto lacking = bUtf8 ? FindLacking(sLine) : std::nullopt) return lacking;
  for (std::size_t n = 0; n < sLine.size(); ++n) {
    const unsigned char c = Byte(sLine, n);
    if (bUtf8 && !IsAsciiByte(c)) return ForeignText{n, Utf8Length(sLine, n), "is UTF-8"};
    if (StandsForNothing(c))
      return ForeignText{n, 1, "has the code " + InHex(c) + ", which stands for no character,"};
    if (IsControl(c)) return ForeignText{n, 1, "has the control character " + InHex(c)};
  }
  return std::nullopt;
}

}  // namespace trelin
