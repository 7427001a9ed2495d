// The input is a picture file.

#include "shared/picture_file.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "fuzz/target.h"
#include "seam/system.h"

namespace trelin {

namespace {

// The input as a file that is read in pieces.
class Pieces : public InputFile {
 public:
  explicit Pieces(std::string_view sInput) : sRest_(sInput), nPiece_(1 + sInput.size() % 5000) {}

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    const std::size_t nRead = sRest_.copy(pBuffer, std::min(nSize, nPiece_));
    sRest_.remove_prefix(nRead);
    return nRead;
  }

 private:
  std::string_view sRest_;
  std::size_t nPiece_;
};

// A bitmap is as long as it says at least.
void CheckBitmap(const std::string& sBytes) {
  if (sBytes.size() < 6) return;
  std::size_t nLength = 0;
  for (const std::size_t i : {5U, 4U, 3U, 2U})
    nLength = nLength * 256 + static_cast<unsigned char>(sBytes[i]);
  Check(nLength <= sBytes.size(), "a bitmap is not cut off");
}

}  // namespace

void Try(std::string_view sInput) {
  try {
    Pieces file(sInput);
    const std::string sBytes = ReadPictureFile(file);
    Check(sBytes == sInput, "the whole file is read");
    const PictureFormat format = FormatOfPicture(sBytes);
    if (format == PictureFormat::Bmp) CheckBitmap(sBytes);
    if (format == PictureFormat::Ico)
      Check(IconImagePlace(sBytes, ShownIcon(sBytes)) < sBytes.size(), "the icon is in the file");
  } catch (const std::runtime_error& error) {
    Check(*error.what() != '\0', "there is a reason");
  }
}

}  // namespace trelin
