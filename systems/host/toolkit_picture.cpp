#include "systems/host/toolkit_picture.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QImageReader>
#include <memory>
#include <stdexcept>
#include <string>

#include "seam/platform.h"
#include "seam/platform_error.h"
#include "shared/picture_file.h"
#include "systems/host/host_path.h"
#include "systems/host/toolkit_icon.h"
#include "systems/host/toolkit_measure.h"

// A static library's resources are lost unless they are asked for by name.
static void InitResources() { Q_INIT_RESOURCE(trelin); }

namespace trelin {

namespace {

const char* QtName(PictureFormat format) {
  switch (format) {
    case PictureFormat::Bmp:
      return "bmp";
    case PictureFormat::Ico:
      return "ico";
    case PictureFormat::Gif:
      return "gif";
    case PictureFormat::Jpeg:
      return "jpeg";
    case PictureFormat::Png:
      break;
  }
  return "png";
}

// The exceptions hold the reason alone.
QImage Decode(const std::string& sBytes) {
  const PictureFormat format = FormatOfPicture(sBytes);
  QByteArray bytes =  // not a copy
      QByteArray::fromRawData(sBytes.data(), static_cast<qsizetype>(sBytes.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer, QtName(format));
  reader.setAutoDetectImageFormat(false);
  const bool bIcon = format == PictureFormat::Ico;
  const int nIndex = bIcon ? ShownIcon(sBytes) : 0;
  if (bIcon) reader.jumpToImage(nIndex);
  RefuseLargePicture(reader.size().width(), reader.size().height());
  const QImage image = reader.read();
  if (image.isNull())
    throw std::runtime_error("the picture is damaged (" + FromQString(reader.errorString()) + ")");
  return bIcon ? WithIconMask(image, sBytes, nIndex) : image;
}

QImage DecodeProgramIcon() {
  InitResources();
  QFile file(":/trelin.ico");
  if (!file.open(QIODevice::ReadOnly)) throw std::logic_error("The program's icon is missing.");
  return Decode(file.readAll().toStdString());
}

}  // namespace

int Picture::WidthPixels() const { return native_->image.width(); }
int Picture::HeightPixels() const { return native_->image.height(); }

Picture Picture::LoadFromFile(const std::string& sPath) {
  const std::unique_ptr<InputFile> file = TheSystem().OpenInput(sPath);
  try {
    return Picture(std::make_shared<const Native>(Native{Decode(ReadPictureFile(*file))}));
  } catch (const PlatformError&) {
    throw;
  } catch (const std::runtime_error& reason) {
    throw PlatformError("load the picture", ShownPath(HostPath(sPath)), reason.what());
  }
}

// Windows and lists ask for it, four times until the menu is open.
Picture Picture::ProgramIcon() {
  static const auto native = std::make_shared<const Native>(Native{DecodeProgramIcon()});
  return Picture(native);
}

}  // namespace trelin
