#include "platform/host/toolkit_picture.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/host/host_files.h"
#include "platform/host/host_path.h"
#include "platform/host/toolkit_icon.h"
#include "platform/host/toolkit_measure.h"
#include "platform/platform_error.h"

// A static library's resources are lost unless they are asked for by name.
static void InitResources() { Q_INIT_RESOURCE(trelin); }

namespace trelin {

namespace {

using namespace std::literals;

constexpr qint64 MaxFileBytes = 64 * 1024 * 1024;
constexpr int MaxSidePixels = 4096;
constexpr int IconPixels = 32;

struct Format {
  std::string_view sSignature;  // the file's first bytes
  const char* pName;            // Qt's
};

constexpr std::array<Format, 5> Formats = {{
    {"BM"sv, "bmp"},
    {"\0\0\1\0"sv, "ico"},
    {"GIF8"sv, "gif"},
    {"\xFF\xD8\xFF"sv, "jpeg"},
    {"\x89PNG\r\n\x1A\n"sv, "png"},
}};

const char* FormatOf(const QByteArray& bytes) {
  const std::string_view sBytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  for (const Format& format : Formats) {
    if (sBytes.starts_with(format.sSignature)) return format.pName;
  }
  throw std::runtime_error("it is no picture that the program knows (BMP, ICO, GIF, JPEG or PNG)");
}

// Of the pictures in an icon file, the one of the size that is shown, or else
// the first.
int ChooseIcon(QImageReader& reader) {
  for (int i = 0; i < reader.imageCount(); ++i) {
    if (reader.jumpToImage(i) && reader.size() == QSize(IconPixels, IconPixels)) return i;
  }
  reader.jumpToImage(0);
  return 0;
}

// A bitmap file says in its header how long it is; Qt fills up what is cut off.
void RefuseCutBitmap(const QByteArray& bytes) {
  std::uint32_t lLength = 0;
  for (qsizetype i = 5; i >= 2 && bytes.size() > 5; --i)
    lLength = lLength << 8U | static_cast<unsigned char>(bytes[i]);
  if (static_cast<std::uint64_t>(bytes.size()) < lLength)
    throw std::runtime_error("the file is cut off");
}

// The exceptions hold the reason alone.
QImage Decode(const QByteArray& bytes) {
  const char* const pFormat = FormatOf(bytes);
  if (pFormat == "bmp"sv) RefuseCutBitmap(bytes);
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, pFormat);
  reader.setAutoDetectImageFormat(false);
  const int nIndex = pFormat == "ico"sv ? ChooseIcon(reader) : 0;
  const QSize size = reader.size();
  if (size.width() > MaxSidePixels || size.height() > MaxSidePixels)
    throw std::runtime_error("the picture is larger than 4096 by 4096 pixels");
  const QImage image = reader.read();
  if (image.isNull())
    throw std::runtime_error("the picture is damaged (" + FromQString(reader.errorString()) + ")");
  return pFormat == "ico"sv ? WithIconMask(image, bytes, nIndex) : image;
}

QByteArray ReadFile(InputFile& file) {
  std::array<char, 4096> buffer;
  QByteArray bytes;
  while (const std::size_t nRead = file.Read(buffer.data(), buffer.size())) {
    bytes.append(buffer.data(), static_cast<qsizetype>(nRead));
    if (bytes.size() > MaxFileBytes)
      throw std::runtime_error("the file is too large for a picture");
  }
  if (bytes.isEmpty()) throw std::runtime_error("the file is empty");
  return bytes;
}

}  // namespace

Picture Picture::LoadFromFile(const std::string& sPath) {
  const std::unique_ptr<InputFile> file = OpenHostFile(sPath);
  try {
    return Picture(std::make_shared<const Native>(Native{Decode(ReadFile(*file))}));
  } catch (const PlatformError&) {
    throw;
  } catch (const std::runtime_error& reason) {
    throw PlatformError("load the picture", ShownPath(HostPath(sPath)), reason.what());
  }
}

Picture Picture::ProgramIcon() {
  InitResources();
  QFile file(":/trelin.ico");
  if (!file.open(QIODevice::ReadOnly)) throw std::logic_error("The program's icon is missing.");
  return Picture(std::make_shared<const Native>(Native{Decode(file.readAll())}));
}

}  // namespace trelin
