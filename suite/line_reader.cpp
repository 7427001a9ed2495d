#include "suite/line_reader.h"

#include <string_view>
#include <utility>

#include "seam/platform.h"

namespace trelin {

namespace {

constexpr std::size_t BufferBytes = 65536;

std::string_view UpToLineEnd(std::string_view sText) {
  const std::string_view sUpToFeed = sText.substr(0, sText.find('\n'));
  return sUpToFeed.substr(0, sUpToFeed.find('\r'));
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
  sBuffer_.clear();
  nNext_ = 0;
  bAfterReturn_ = false;
}

bool LineReader::NextLine(std::string_view& sLine) {
  sBegun_.clear();
  bool bAny = false;
  while (nNext_ < sBuffer_.size() || ReadOn()) {
    if (std::exchange(bAfterReturn_, false) && sBuffer_[nNext_] == '\n') {
      ++nNext_;
      continue;
    }
    sLine = UpToLineEnd(std::string_view(sBuffer_).substr(nNext_));
    nNext_ += sLine.size();
    const bool bEnds = nNext_ < sBuffer_.size();
    if (bEnds) bAfterReturn_ = sBuffer_[nNext_++] == '\r';
    if (bEnds && !bAny) return true;
    sBegun_ += sLine;
    bAny = true;
    if (bEnds) break;
  }
  sLine = sBegun_;
  return bAny;
}

bool LineReader::ReadOn() {
  if (!file_) return false;
  sBuffer_.resize(BufferBytes);
  nNext_ = BufferBytes;  // nothing is left, should reading fail
  sBuffer_.resize(file_->Read(sBuffer_.data(), BufferBytes));
  nNext_ = 0;
  return !sBuffer_.empty();
}

}  // namespace trelin
