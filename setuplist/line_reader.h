#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/system.h"

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
  bool NextLine(std::span<char>& line);

  // Fills the buffer up behind the beginning of a line that is left in it.
  // False at the end of the file. Throws PlatformError when the file cannot be
  // read.
  bool ReadOn();

  // Whether any line in the buffer may hold a tab.
  bool HasTabs() const { return bTabs_; }

 private:
  void MakeRoom();
  char* FindLineEnd(char* pBegin, char* pLimit) const;

  std::unique_ptr<InputFile> file_;
  std::vector<char> buffer_;
  std::size_t nNext_ = 0;  // the part of the buffer that is not read yet
  std::size_t nEnd_ = 0;
  bool bFileEnd_ = false;      // nothing follows behind the buffer
  bool bTabs_ = false;         // in the buffer
  bool bLoneReturns_ = false;  // in the buffer there is a CR that no LF follows
};

}  // namespace trelin
