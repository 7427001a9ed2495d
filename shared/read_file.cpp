#include "shared/read_file.h"

#include <array>

namespace trelin {

std::optional<std::string> ReadWholeFile(InputFile& file) {
  std::array<char, 4096> buffer;
  std::string sBytes;
  while (const std::size_t nRead = file.Read(buffer.data(), buffer.size())) {
    sBytes.append(buffer.data(), nRead);
    if (sBytes.size() > MaxFileBytes) return std::nullopt;
  }
  return sBytes;
}

}  // namespace trelin
