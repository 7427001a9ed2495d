#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "seam/system.h"

namespace trelin {

// Reads a file line by line, once and in order. A line ends at CR LF, CR or LF,
// which are no part of it; the last one needs no end.
class LineReader {
 public:
  // Throws PlatformError when the file does not open; then none is open.
  void Open(const std::string& sFile);
  void Open(std::unique_ptr<InputFile> file);
  void Close();

  // False at the end of the file. The line stays where it lies until the next call.
  // Throws PlatformError when the file cannot be read.
  bool NextLine(std::string_view& sLine);

 private:
  bool ReadOn();

  std::unique_ptr<InputFile> file_;
  std::string sBuffer_;
  std::size_t nNext_ = 0;      // in the buffer
  std::string sBegun_;         // of a line that goes on behind the buffer
  bool bAfterReturn_ = false;  // a line has ended at a CR: a LF that follows belongs to it
};

}  // namespace trelin
