#include "bench/opened_menu.h"

#include <QApplication>
#include <QImage>
#include <QTimer>
#include <stdexcept>

#include "bench/made_suite.h"

namespace trelin {

std::string MadePictureName(std::int32_t nProduct) {
  const std::string sCheckFile = MadeCheckFile(nProduct);
  return sCheckFile.substr(0, sCheckFile.size() - 3) + "bmp";
}

void WritePictures(const BenchFolder& folder, std::int32_t nPictures) {
  QImage image(32, 32, QImage::Format_RGB888);
  for (std::int32_t n = 1; n <= nPictures; ++n) {
    for (int y = 0; y < 32; ++y)
      for (int x = 0; x < 32; ++x) image.setPixelColor(x, y, QColor(n % 256, 8 * x, 8 * y));
    if (!image.save(QString::fromStdString(folder / MadePictureName(n))))
      throw std::runtime_error("a picture was not written");
  }
}

void OpenMenu(const std::function<void(frmMainMenu&)>& use) {
  frmMainMenu menu("");
  QTimer::singleShot(0, [&] {
    QApplication::processEvents();
    use(menu);
    menu.Unload();
  });
  menu.Initialize();
  menu.ShowModal();
}

}  // namespace trelin
