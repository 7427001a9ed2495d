#include "suite/line_reader.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "seam/platform.h"

namespace trelin {

namespace {

// Most lists fit into the first; the largest makes the calls of the system few.
constexpr std::size_t FirstBufferBytes = 4096;
constexpr std::size_t LargeBufferBytes = 65536;

constexpr char FirstPrintable = ' ';

bool IsControl(char c) { return static_cast<unsigned char>(c) < FirstPrintable; }

// Of eight characters, the highest bit of each that is a control character: taking 32 from
// such a byte borrows, and so sets that bit where it was clear. Bits above the lowest one
// may be set for no reason.
std::uint64_t Controls(const char* pCharacters) {
  constexpr std::uint64_t EachByte = 0x0101010101010101;
  std::uint64_t lBytes = 0;
  std::memcpy(&lBytes, pCharacters, sizeof lBytes);
  return (lBytes - FirstPrintable * EachByte) & ~lBytes & 0x80 * EachByte;
}

// The first control character from nFrom on, or the end. Line ends and tabs are such, and
// little else is: they are looked for in one go, eight characters at a time where the first
// one is the lowest byte, since a good part of the time of reading is this.
std::size_t FindControl(std::string_view sText, std::size_t nFrom) {
  constexpr bool bFirstIsLowest = std::endian::native == std::endian::little;
  for (; bFirstIsLowest && nFrom + 8 <= sText.size(); nFrom += 8)
    if (const std::uint64_t lControls = Controls(sText.data() + nFrom))
      return nFrom + static_cast<std::size_t>(std::countr_zero(lControls)) / 8;
  while (nFrom < sText.size() && !IsControl(sText[nFrom])) ++nFrom;
  return nFrom;
}

// In the text, from nFrom on; the text's size when the line may go on behind it.
std::size_t FindLineEnd(std::string_view sText, std::size_t nFrom, bool& bTab) {
  std::size_t nAt = FindControl(sText, nFrom);
  while (nAt < sText.size() && sText[nAt] != '\r' && sText[nAt] != '\n') {
    bTab = bTab || sText[nAt] == '\t';
    nAt = FindControl(sText, nAt + 1);
  }
  return nAt;
}

std::size_t LineEndLength(std::string_view sText) {
  if (sText.starts_with("\r\n")) return 2;
  return sText.empty() ? 0 : 1;
}

}  // namespace

void LineReader::Open(const std::string& sFile) {
  Close();
  file_ = TheSystem().OpenInput(sFile);
}

void LineReader::Open(std::unique_ptr<InputFile> file) {
  Close();
  file_ = std::move(file);
}

void LineReader::Close() {
  file_.reset();
  sRest_ = {};
}

bool LineReader::NextLine(std::string_view& sLine) {
  bTab_ = false;
  std::size_t nEnd = 0;
  // A CR that is the last in the rest may be the half of a line end.
  do nEnd = FindLineEnd(sRest_, nEnd, bTab_);
  while (nEnd + 1 >= sRest_.size() && ReadOn());
  if (sRest_.empty()) return false;
  sLine = sRest_.substr(0, nEnd);
  sRest_.remove_prefix(nEnd + LineEndLength(sRest_.substr(nEnd)));
  return true;
}

bool LineReader::ReadOn() {
  if (!file_) return false;
  const std::size_t nRest = sRest_.size();
  std::copy(sRest_.begin(), sRest_.end(), buffer_.begin());
  const std::size_t nLarger = std::clamp(2 * buffer_.size(), FirstBufferBytes, LargeBufferBytes);
  buffer_.resize(std::max({buffer_.size(), nLarger, 2 * nRest}));
  sRest_ = {};  // should reading fail
  const std::size_t nRead = file_->Read(buffer_.data() + nRest, buffer_.size() - nRest);
  sRest_ = {buffer_.data(), nRest + nRead};
  return nRead > 0;
}

}  // namespace trelin
