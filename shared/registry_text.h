#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace trelin {

// What is wrong with a registry file, and in which line (from 1).
struct RegistryFileFault {
  std::size_t nLine;
  std::string sReason;
};

// Turns the bytes of a registry file into text of the code page 1252. The
// file is UTF-8, or UTF-16 in either byte order behind a byte order mark.
// Throws RegistryFileFault for bytes that are no text of that encoding and
// for characters that the code page lacks: nothing becomes a question mark.
std::string DecodeRegistryText(std::string_view sBytes);

// The same for the UTF-16 text (low byte first) that stands in the line nLine
// in hexadecimal form.
std::string DecodeUtf16Data(std::string_view sBytes, std::size_t nLine);

// In hexadecimal digits, with zeros in front up to nDigits.
std::string HexNumber(std::uint32_t lNumber, std::size_t nDigits);

// Text of the code page 1252 as UTF-16, low byte first.
std::string EncodeUtf16Data(std::string_view sText1252);

}  // namespace trelin
