#include "systems/host/toolkit_setup.h"

#include <QByteArray>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QProxyStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <memory>

#include "systems/host/toolkit_accessible.h"
#include "systems/host/toolkit_font.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_picture.h"

namespace trelin {

namespace {

QPalette ClassicPalette() {
  const QColor face = ToQColor(Color::ButtonFace);
  const QColor shadow = ToQColor(Color::ButtonShadow);
  const QColor light = ToQColor(Color::ButtonHighlight);
  QPalette palette(Qt::black, face, light, shadow, face.darker(125), Qt::black, Qt::white,
                   Qt::white, face);
  palette.setColor(QPalette::Midlight, ToQColor(Color::Light3D));
  palette.setColor(QPalette::Shadow, ToQColor(Color::DarkShadow3D));
  palette.setColor(QPalette::Highlight, QColor(0x0A, 0x24, 0x6A));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
    palette.setColor(QPalette::Disabled, role, shadow);
  return palette;
}

// Qt shares the filling of a pattern that is higher than this out among threads, which it
// starts for it and waits for.
constexpr int BandHeight = 64;

// The trough of a scroll bar is drawn in bands.
class ClassicStyle : public QProxyStyle {
 public:
  ClassicStyle() : QProxyStyle("Windows") {}

  void drawControl(ControlElement element, const QStyleOption* pOption, QPainter* pPainter,
                   const QWidget* pWidget) const override {
    const auto* pTrough = qstyleoption_cast<const QStyleOptionSlider*>(pOption);
    if (pTrough == nullptr || (element != CE_ScrollBarAddPage && element != CE_ScrollBarSubPage))
      return QProxyStyle::drawControl(element, pOption, pPainter, pWidget);
    QStyleOptionSlider band(*pTrough);
    for (int y = pTrough->rect.top(); y <= pTrough->rect.bottom(); y += BandHeight) {
      band.rect.setTop(y);
      band.rect.setBottom(std::min(y + BandHeight - 1, pTrough->rect.bottom()));
      QProxyStyle::drawControl(element, &band, pPainter, pWidget);
    }
  }
};

// A variable of the environment for as long as this lives. Programs that are
// started later are to find it as it was.
class Variable {
 public:
  Variable(const char* pName, const char* pValue)
      : pName_(pName), bSet_(qEnvironmentVariableIsSet(pName)), before_(qgetenv(pName)) {
    qputenv(pName, pValue);
  }
  ~Variable() { bSet_ ? qputenv(pName_, before_) : qunsetenv(pName_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* pName_;
  bool bSet_;
  QByteArray before_;
};

// Nothing is ever typed into the program: without an input method, none is
// loaded, nor its table of key sequences.
std::unique_ptr<QApplication> WithoutInputMethod(int& argc, char** argv) {
  const Variable inputMethod("QT_IM_MODULE", "none");
  return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
  // A pixel of Qt is to be a pixel of the screen: the program lays itself out
  // from the screen's dots per inch.
  qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
  auto application = WithoutInputMethod(argc, argv);
  InstallAccessibility();
  // The loop of a window ends when it is unloaded, not when Qt sees none left.
  application->setQuitOnLastWindowClosed(false);
  QApplication::setStyle(new ClassicStyle);
  QApplication::setPalette(ClassicPalette());
  QApplication::setFont(FontOf(LabelFont()));
  // The icon of message boxes that no window owns.
  QApplication::setWindowIcon(QIcon(QPixmap::fromImage(Picture::ProgramIcon().Get().image)));
  return application;
}

}  // namespace trelin
