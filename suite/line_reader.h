#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

  // Whether there is a tab in the line that was read last.
  bool HasTab() const { return bTab_; }

 private:
  // Reads on behind the rest, which is moved to the buffer's beginning. False when there
  // is no more.
  bool ReadOn();

  std::unique_ptr<InputFile> file_;
  std::vector<char> buffer_;
  std::string_view sRest_;  // in the buffer: what is read and not yet delivered
  bool bTab_ = false;
};

}  // namespace trelin
