#include "shared/read_file.h"

#include <array>

namespace trelin {

bool ReadWholeFile(InputFile& file, std::string& sBytes) {
  std::array<char, 4096> buffer;
  sBytes.clear();
  while (const std::size_t nRead = file.Read(buffer.data(), buffer.size())) {
    sBytes.append(buffer.data(), nRead);
    if (sBytes.size() > MaxFileBytes) return false;
  }
  return true;
}

std::optional<std::string> ReadWholeFile(InputFile& file) {
  std::optional<std::string> sBytes(std::in_place);
  if (!ReadWholeFile(file, *sBytes)) sBytes.reset();
  return sBytes;
}

}  // namespace trelin
