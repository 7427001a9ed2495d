#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace trelin {

// The ANSI code page Windows-1252, for the platform layers and tests that
// have no system function for it. A character that the code page lacks
// becomes "?".

extern const std::array<char, 256> UpperCaseTable1252;

inline char UpperCase1252(char c) { return UpperCaseTable1252[static_cast<unsigned char>(c)]; }
std::string UpperCase1252(std::string_view sText);
void MakeUpperCase1252(std::span<char> text);

// Whether the text is the same in every code page and in UTF-8.
bool IsAscii(std::string_view sText);

std::string ToUtf8(std::string_view sText1252);
std::string FromUtf8(std::string_view sUtf8);  // bytes that are no UTF-8: one "?" each
std::string FromUtf16(std::u16string_view sUtf16);
std::string Utf8FromUtf16(std::u16string_view sUtf16);

// The Unicode code point of one character of the code page. The five codes
// that the code page leaves open stand for the control characters of the
// same number, as on Windows.
char32_t CodePoint1252(char c);

}  // namespace trelin
