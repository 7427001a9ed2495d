#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "seam/system.h"

namespace trelin {

// Reads a file line by line through one buffer, once and in order. A line ends
// at CR LF, CR or LF, which are no part of it; the last one needs no end.
//
//   std::span<char> line;
//   do {
//     while (reader.NextLine(line)) Use(line);
//   } while (reader.ReadOn());
class LineReader {
 public:
  // Throws PlatformError when the file does not open; then none is open.
  void Open(const std::string& sFile);
  void Close();

  // The next line that lies whole in the buffer; false when there is none. It
  // may be changed where it lies, and stays there until ReadOn.
  bool NextLine(std::span<char>& line) {
    if (pNext_ == pEnd_) return false;
    char* const pBegin = pNext_;
    char* const pEnd = FindLineEnd();
    char* pNext = pEnd;
    if (pNext != pEnd_ && *pNext == '\r') ++pNext;
    if (pNext != pEnd_ && *pNext == '\n') ++pNext;
    if (pNext == pEnd_ && pNext[-1] != '\n' && !bFileEnd_) return false;  // the rest is to come
    pNext_ = pNext;
    line = {pBegin, pEnd};
    return true;
  }

  // Fills the buffer up behind the beginning of a line that is left in it.
  // False at the end of the file. Throws PlatformError when the file cannot be
  // read.
  bool ReadOn();

  // Whether any line in the buffer may hold a tab.
  bool HasTabs() const { return bTabs_; }

 private:
  // The first c, or pLimit.
  static char* Find(char c, char* pBegin, char* pLimit) {
    void* pFound = std::memchr(pBegin, c, static_cast<std::size_t>(pLimit - pBegin));
    return pFound != nullptr ? static_cast<char*>(pFound) : pLimit;
  }

  // Of the line at pNext_. Nearly all files have no CR but those before an LF.
  char* FindLineEnd() const {
    char* const pEnd = Find('\n', pNext_, pEnd_);
    if (bLoneReturns_) return Find('\r', pNext_, pEnd);
    return pEnd != pNext_ && pEnd[-1] == '\r' ? pEnd - 1 : pEnd;
  }

  void MakeRoom();

  std::unique_ptr<InputFile> file_;
  std::vector<char> buffer_;
  char* pNext_ = nullptr;  // the part of the buffer that is not read yet
  char* pEnd_ = nullptr;
  bool bFileEnd_ = false;      // nothing follows behind the buffer
  bool bTabs_ = false;         // in the buffer
  bool bLoneReturns_ = false;  // in the buffer there is a CR that no LF follows
};

}  // namespace trelin
