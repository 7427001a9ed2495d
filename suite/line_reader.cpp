#include "suite/line_reader.h"

#include <algorithm>

#include "seam/platform.h"

namespace trelin {

namespace {

constexpr std::size_t BufferBytes = 65536;

// Whether there is a CR that no LF follows; of the last byte that is not known.
// Steps of a fixed length let the compiler look at many bytes at once.
bool HoldsLoneReturn(const char* pBegin, const char* pEnd) {
  constexpr std::ptrdiff_t Step = 1024;
  unsigned char nFound = 0;
  const auto look = [&nFound](const char* p) {
    const bool bLone = (p[0] == '\r') & (p[1] != '\n');
    nFound = static_cast<unsigned char>(nFound | static_cast<unsigned char>(bLone));
  };
  for (; pEnd - pBegin > Step; pBegin += Step)
    for (std::ptrdiff_t i = 0; i < Step; ++i) look(pBegin + i);
  for (; pEnd - pBegin > 1; ++pBegin) look(pBegin);
  return nFound != 0;
}

}  // namespace

void LineReader::Open(const std::string& sFile) {
  Close();
  file_ = TheSystem().OpenInput(sFile);
}

void LineReader::Close() {
  file_.reset();
  pNext_ = pEnd_ = buffer_.data();
  bFileEnd_ = false;
}

bool LineReader::ReadOn() {
  if (!file_ || bFileEnd_) return false;
  MakeRoom();
  bTabs_ = bLoneReturns_ = true;  // as long as it is not known, when reading fails
  char* const pLimit = buffer_.data() + buffer_.size();
  while (pEnd_ != pLimit && !bFileEnd_) {
    const std::size_t nRead = file_->Read(pEnd_, static_cast<std::size_t>(pLimit - pEnd_));
    pEnd_ += nRead;
    bFileEnd_ = nRead == 0;
  }
  bTabs_ = Find('\t', pNext_, pEnd_) != pEnd_;
  bLoneReturns_ = HoldsLoneReturn(pNext_, pEnd_);
  return pNext_ != pEnd_;
}

// Moves what is left to the front of the buffer, which grows when a line is as
// long as it.
void LineReader::MakeRoom() {
  pEnd_ = std::copy(pNext_, pEnd_, buffer_.data());
  const auto nLeft = static_cast<std::size_t>(pEnd_ - buffer_.data());
  if (nLeft == buffer_.size()) buffer_.resize(std::max(BufferBytes, 2 * nLeft));
  pNext_ = buffer_.data();
  pEnd_ = pNext_ + nLeft;
}

}  // namespace trelin
