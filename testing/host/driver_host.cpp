#include <QtTest/qtestspontaneevent.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <QWindow>
#include <map>

#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"
#include "testing/driver.h"
#include "testing/driver_system.h"

namespace trelin {

namespace {

constexpr int WheelNotch = 120;

// In the order of Key.
constexpr Qt::Key QtKeys[] = {Qt::Key_Return,  Qt::Key_Enter,    Qt::Key_Escape, Qt::Key_Tab,
                              Qt::Key_Backtab, Qt::Key_Space,    Qt::Key_Up,     Qt::Key_Down,
                              Qt::Key_PageUp,  Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End};

QWidget& Area(const Control& control) { return *control.Get().area; }

QWindow& WindowOf(const Control& control) { return *Area(control).window()->windowHandle(); }

QPoint InWindow(const Control& control, const QPoint& point) {
  return Area(control).mapTo(Area(control).window(), point);
}

QPoint InWindow(const Control& control, Twips x, Twips y) {
  return InWindow(control, QPoint(PixelsX(x), PixelsY(y)));
}

QPoint MiddleOf(const Control& control) { return InWindow(control, Area(control).rect().center()); }

bool IsExposed(const QWidget* pWindow) {
  return pWindow->isVisible() && pWindow->windowHandle() != nullptr &&
         pWindow->windowHandle()->isExposed();
}

// The screen in memory has no window manager that makes a window active again.
bool IsUp(QWidget* pWindow) {
  if (!IsExposed(pWindow)) return false;
  if (QApplication::activeWindow() == nullptr) QApplication::setActiveWindow(pWindow);
  return pWindow->isActiveWindow();
}

// The window that is in use: the one opened last.
QWidget* UsedWidget() {
  if (QWidget* pWindow = QApplication::activeWindow())
    return IsExposed(pWindow) ? pWindow : nullptr;
  if (QWidget* pWindow = QApplication::activeModalWidget(); pWindow && IsUp(pWindow))
    return pWindow;
  for (QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (IsUp(pWindow)) return pWindow;
  }
  return nullptr;
}

void SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* const pWindow = UsedWidget();
  ASSERT_NE(pWindow, nullptr) << "no window takes a key";
  QTest::keyClick(pWindow->windowHandle(), key, modifiers);
}

// What the window has put on the screen, once it has painted what it was asked to.
QImage ScreenOf(const Control& control) {
  QWindow& window = WindowOf(control);
  QApplication::processEvents();
  QEvent paint(QEvent::UpdateRequest);  // which the screen sends some time later
  QApplication::sendEvent(Area(control).window(), &paint);
  return window.screen()->grabWindow(window.winId()).toImage();
}

// What is read of a text that may have marks in it.
QString PlainText(const QString& text) {
  return QTextDocumentFragment::fromHtml(text).toPlainText();
}

Rgb ToRgb(const QColor& color) { return {color.red(), color.green(), color.blue()}; }

}  // namespace

DriverSystem::Window DriverSystem::WindowOf(const Form& form) { return &Area(form); }

DriverSystem::Window DriverSystem::UsedWindow() { return UsedWidget(); }

bool DriverSystem::IsOpen(Window window) {
  for (const QWidget* pWindow : QApplication::topLevelWidgets())
    if (pWindow == window) return pWindow->isVisible();
  return false;
}

std::string DriverSystem::TitleOf(Window window) {
  return FromQString(static_cast<QWidget*>(window)->windowTitle());
}

void DriverSystem::Close(Window window) { static_cast<QWidget*>(window)->close(); }

void DriverSystem::CloseAll() {
  for (QWidget* pWindow : QApplication::topLevelWidgets()) {
    auto* const pBox = qobject_cast<QMessageBox*>(pWindow);
    pBox != nullptr ? pBox->reject() : void(pWindow->close());
  }
}

static void TickAgain(void (*tick)()) {
  QTimer::singleShot(1, qApp, [tick] {
    TickAgain(tick);
    tick();
  });
}

void DriverSystem::KeepTicking(void (*tick)()) {
  [[maybe_unused]] static const bool bStarted = (TickAgain(tick), true);
}

std::string Driver::MessageText() {
  const auto* pBox = qobject_cast<QMessageBox*>(UsedWidget());
  if (pBox == nullptr) return "";
  const bool bPlain = pBox->textFormat() == Qt::PlainText;
  return FromQString(bPlain ? pBox->text() : PlainText(pBox->text()));
}

void Driver::Answer(MessageAnswer button) {
  const auto* pBox = qobject_cast<QMessageBox*>(UsedWidget());
  ASSERT_NE(pBox, nullptr) << "no message box is in use";
  const QAbstractButton* pButton = pBox->button(button == MessageAnswer::Yes  ? QMessageBox::Yes
                                                : button == MessageAnswer::No ? QMessageBox::No
                                                                              : QMessageBox::Ok);
  ASSERT_NE(pButton, nullptr) << "the message box has no such button";
  QTest::mouseClick(pBox->windowHandle(), Qt::LeftButton, {},
                    pButton->mapTo(pBox, pButton->rect().center()));
}

void Driver::Wait(int nMilliseconds) { QTest::qWait(nMilliseconds); }

void Driver::Press(const Control& control, Twips x, Twips y) {
  QTest::mousePress(&WindowOf(control), Qt::LeftButton, {}, InWindow(control, x, y));
}

void Driver::MoveTo(const Control& control, Twips x, Twips y) {
  QTest::mouseMove(&WindowOf(control), InWindow(control, x, y));
}

void Driver::Release(const Control& control, Twips x, Twips y) {
  QTest::mouseRelease(&WindowOf(control), Qt::LeftButton, {}, InWindow(control, x, y));
}

void Driver::Click(const Control& control) {
  QTest::mouseClick(&WindowOf(control), Qt::LeftButton, {}, MiddleOf(control));
}

void Driver::DoubleClick(const Control& control) {
  QTest::mouseDClick(&WindowOf(control), Qt::LeftButton, {}, MiddleOf(control));
}

void Driver::TurnWheel(const Control& control, int nNotches) {
  QWindow& window = WindowOf(control);
  const QPoint point = MiddleOf(control);
  QWheelEvent event(point, window.mapToGlobal(point), {}, QPoint(0, nNotches * WheelNotch), {}, {},
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&event);  // only the user's go on to the container
  qApp->notify(&window, &event);
}

void Driver::Type(Key key) {
  SendKey(QtKeys[static_cast<int>(key)],
          key == Key::KeypadEnter ? Qt::KeypadModifier : Qt::NoModifier);
}

void Driver::TypeAccessKey(char c) {
  SendKey(static_cast<Qt::Key>(Qt::Key_A + (c - 'A')), Qt::AltModifier);
}

std::string Driver::FrameOf(const Form& form) {
  const QWidget& window = Area(form);
  const Qt::WindowFlags flags = window.windowFlags();
  return std::string(window.windowIcon().isNull() ? "" : "icon") +
         (flags & Qt::WindowCloseButtonHint ? ", close box" : "") +
         (window.minimumSize() != window.maximumSize() ? ", sizable" : "") +
         (flags & Qt::WindowMinimizeButtonHint ? ", minimize box" : "") +
         (flags & Qt::WindowMaximizeButtonHint ? ", maximize box" : "") +
         (window.windowType() == Qt::Window ? ", in the task bar" : "");
}

void Driver::CloseWindow() {
  ASSERT_NE(UsedWidget(), nullptr) << "no window is in use";
  UsedWidget()->close();
}

std::string Driver::ReadText(const Control& control) {
  QAccessibleInterface* pAccessible =
      QAccessible::queryAccessibleInterface(control.Get().widget.data());
  if (pAccessible == nullptr || !pAccessible->isValid()) return "";
  const QString value = pAccessible->text(QAccessible::Value);
  return FromQString(value.isEmpty() ? pAccessible->text(QAccessible::Name) : value);
}

namespace {

const std::map<QAccessible::Role, const char*> roleNames = {{QAccessible::List, "list"},
                                                            {QAccessible::ListItem, "list item"},
                                                            {QAccessible::Button, "button"},
                                                            {QAccessible::StaticText, "text"},
                                                            {QAccessible::ScrollBar, "scroll bar"}};

QAccessibleInterface* AccessibleOf(const Control& control) {
  return QAccessible::queryAccessibleInterface(&Area(control));
}

std::string DescriptionOf(QAccessibleInterface* pAccessible) {
  const QAccessible::State state = pAccessible->state();
  return std::string(roleNames.at(pAccessible->role())) + " <" +
         FromQString(pAccessible->text(QAccessible::Name)) + '>' +
         (state.focused ? " focused" : "") + (state.selected ? " selected" : "");
}

}  // namespace

std::string Driver::Describe(const Control& control) {
  return DescriptionOf(AccessibleOf(control));
}

std::vector<std::string> Driver::DescribeChildren(const Control& control) {
  QAccessibleInterface* const pAccessible = AccessibleOf(control);
  std::vector<std::string> children;
  for (int i = 0; i < pAccessible->childCount(); ++i) {
    QAccessibleInterface* const pChild = pAccessible->child(i);
    EXPECT_EQ(pChild->parent(), pAccessible);
    EXPECT_EQ(pAccessible->indexOfChild(pChild), i);
    children.push_back(DescriptionOf(pChild));
  }
  return children;
}

void Driver::Act(const Control& control) {
  QAccessibleActionInterface* const pAction = AccessibleOf(control)->actionInterface();
  ASSERT_NE(pAction, nullptr);
  ASSERT_TRUE(pAction->actionNames().contains(QAccessibleActionInterface::pressAction()));
  pAction->doAction(QAccessibleActionInterface::pressAction());
  Wait(0);
}

// As when the pointer has rested there for a while.
std::string Driver::TooltipOver(const Control& control) {
  QToolTip::hideText();  // in a moment
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << "a tooltip does not go";
  QWidget& window = *Area(control).window();
  const QPoint point = MiddleOf(control);
  QWidget* const pUnder = window.childAt(point);
  QHelpEvent event(QEvent::ToolTip, pUnder->mapFrom(&window, point), window.mapToGlobal(point));
  QApplication::sendEvent(pUnder, &event);
  if (!QToolTip::isVisible()) return "";
  for (const QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (!pWindow->inherits("QTipLabel") || !pWindow->isVisible()) continue;
    const QRect screen = pWindow->screen()->geometry().adjusted(-1, -1, 1, 1);  // Qt's last pixel
    EXPECT_TRUE(screen.contains(pWindow->geometry())) << "the tooltip leaves the screen";
    EXPECT_LT(pWindow->width(), window.width()) << "the tooltip does not wrap";
  }
  return FromQString(PlainText(QToolTip::text()));
}

std::vector<std::vector<Rgb>> DriverSystem::PixelsIn(const Control& control, PixelRect rect) {
  const QPoint corner = InWindow(control, QPoint(rect.nLeft, rect.nTop));
  const QImage image = ScreenOf(control).copy(QRect(corner, QSize(rect.nWidth, rect.nHeight)));
  std::vector<std::vector<Rgb>> rows;
  for (int y = 0; y < image.height(); ++y) {
    auto& row = rows.emplace_back();
    for (int x = 0; x < image.width(); ++x) row.push_back(ToRgb(image.pixelColor(x, y)));
  }
  return rows;
}

Rgb Driver::RgbOf(Color color) { return ToRgb(ToQColor(color)); }

PixelRect Driver::Bounds(const Control& control) {
  const QRect rect = control.Get().widget->geometry();
  return {rect.x(), rect.y(), rect.width(), rect.height()};
}

PixelRect Driver::Inside(const Control& control) {
  const QPoint corner = InWindow(control, QPoint(0, 0));
  return {corner.x(), corner.y(), Area(control).width(), Area(control).height()};
}

bool Driver::IsShown(const Control& control) { return Area(control).isVisible(); }

bool Driver::TakesInput(const Control& control) { return Area(control).isEnabled(); }

bool Driver::HasFocus(const Control& control) { return Area(control).hasFocus(); }

}  // namespace trelin
