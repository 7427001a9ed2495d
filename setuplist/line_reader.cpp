#include "setuplist/line_reader.h"

#include <algorithm>
#include <cstring>

#include "platform/platform.h"

namespace trelin {

namespace {

constexpr std::size_t BufferBytes = 65536;

// The first c, or pLimit.
char* Find(char c, char* pBegin, char* pLimit) {
  void* pFound = std::memchr(pBegin, c, static_cast<std::size_t>(pLimit - pBegin));
  return pFound != nullptr ? static_cast<char*>(pFound) : pLimit;
}

// Whether there is a CR that no LF follows; of the last byte that is not known.
bool HoldsLoneReturn(const char* pBegin, std::size_t nBytes) {
  bool bFound = false;
  for (std::size_t i = 0; i + 1 < nBytes; ++i)
    bFound |= pBegin[i] == '\r' && pBegin[i + 1] != '\n';
  return bFound;
}

}  // namespace

void LineReader::Open(const std::string& sFile) {
  Close();
  file_ = TheSystem().OpenInput(sFile);
}

void LineReader::Close() {
  file_.reset();
  nNext_ = nEnd_ = 0;
  bFileEnd_ = false;
}

bool LineReader::NextLine(std::span<char>& line) {
  if (nNext_ == nEnd_) return false;
  char* const pBegin = buffer_.data() + nNext_;
  char* const pLimit = buffer_.data() + nEnd_;
  char* const pEnd = FindLineEnd(pBegin, pLimit);
  char* pNext = pEnd;
  if (pNext != pLimit && *pNext == '\r') ++pNext;
  if (pNext != pLimit && *pNext == '\n') ++pNext;
  if (pNext == pLimit && pNext[-1] != '\n' && !bFileEnd_) return false;  // the rest is to come
  nNext_ = static_cast<std::size_t>(pNext - buffer_.data());
  line = {pBegin, pEnd};
  return true;
}

// Nearly every line ends at an LF; only where there are other ends, a line is
// searched for them.
char* LineReader::FindLineEnd(char* pBegin, char* pLimit) const {
  char* const pEnd = Find('\n', pBegin, pLimit);
  if (bLoneReturns_) return Find('\r', pBegin, pEnd);
  return pEnd != pBegin && pEnd[-1] == '\r' ? pEnd - 1 : pEnd;
}

bool LineReader::ReadOn() {
  if (!file_ || bFileEnd_) return false;
  MakeRoom();
  while (nEnd_ < buffer_.size() && !bFileEnd_) {
    const std::size_t nRead = file_->Read(buffer_.data() + nEnd_, buffer_.size() - nEnd_);
    nEnd_ += nRead;
    bFileEnd_ = nRead == 0;
  }
  bTabs_ = std::memchr(buffer_.data(), '\t', nEnd_) != nullptr;
  bLoneReturns_ = HoldsLoneReturn(buffer_.data(), nEnd_);
  return nEnd_ > 0;
}

// Moves what is left to the front of the buffer, which grows when a line is as
// long as it.
void LineReader::MakeRoom() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(nNext_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(nEnd_), buffer_.begin());
  nEnd_ -= nNext_;
  nNext_ = 0;
  if (nEnd_ == buffer_.size()) buffer_.resize(std::max(BufferBytes, 2 * nEnd_));
}

}  // namespace trelin
