#include "suite/line_reader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "seam/platform.h"

namespace trelin {

namespace {

constexpr std::size_t BufferBytes = 65536;

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

}  // namespace

void LineReader::Open(const std::string& sFile) {
  Close();
  file_ = TheSystem().OpenInput(sFile);
}

void LineReader::Close() {
  file_.reset();
  sBuffer_.clear();
  nNext_ = 0;
  bAfterReturn_ = false;
}

bool LineReader::NextLine(std::string& sLine) {
  sLine.clear();
  bool bAny = false;
  while (nNext_ < sBuffer_.size() || ReadOn()) {
    if (std::exchange(bAfterReturn_, false) && sBuffer_[nNext_] == '\n') {
      ++nNext_;
      continue;
    }
    const auto begin = sBuffer_.begin() + static_cast<std::ptrdiff_t>(nNext_);
    const auto end = std::find_if(begin, sBuffer_.end(), IsLineEnd);
    sLine.append(begin, end);
    bAny = true;
    nNext_ = static_cast<std::size_t>(end - sBuffer_.begin());
    if (end == sBuffer_.end()) continue;
    bAfterReturn_ = *end == '\r';
    ++nNext_;
    return true;
  }
  return bAny;
}

bool LineReader::ReadOn() {
  if (!file_) return false;
  std::array<char, BufferBytes> buffer;
  const std::size_t nRead = file_->Read(buffer.data(), buffer.size());
  sBuffer_.assign(buffer.data(), nRead);
  nNext_ = 0;
  return nRead > 0;
}

}  // namespace trelin
