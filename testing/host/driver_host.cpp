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
#include <chrono>
#include <exception>

#include "systems/host/message_box.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"
#include "testing/driver.h"

namespace trelin {

namespace {

using namespace std::chrono_literals;

constexpr auto PollInterval = 5ms;
constexpr auto LongestShown = 10s;
constexpr int RepaintMilliseconds = 30;
constexpr int WheelNotch = 120;
constexpr int LongestTooltipDelay = 1500;  // milliseconds

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
QWidget* UsedWindow() {
  if (QWidget* pWindow = QApplication::activeWindow()) return pWindow;
  if (QWidget* pWindow = QApplication::activeModalWidget(); pWindow && IsUp(pWindow))
    return pWindow;
  for (QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (IsUp(pWindow)) return pWindow;
  }
  return nullptr;
}

// Calls attempt again and again until it returns true.
void Poll(QObject* pOwner, const std::function<bool()>& attempt) {
  auto* pTimer = new QTimer(pOwner);
  QObject::connect(pTimer, &QTimer::timeout, pTimer, [pTimer, attempt] {
    pTimer->stop();
    attempt() ? pTimer->deleteLater() : pTimer->start();
  });
  pTimer->start(PollInterval);
}

void RunScript(const std::function<void()>& script) {
  try {
    script();
  } catch (const std::exception& error) {
    ADD_FAILURE() << "the script threw: " << error.what();
  }
}

void CloseAll() {
  for (QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (auto* pBox = qobject_cast<QMessageBox*>(pWindow)) pBox->reject();
  }
  for (QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (pWindow->isVisible()) pWindow->close();
  }
}

void WatchFor(QWidget* pWindow) {
  auto* pTimer = new QTimer(pWindow);
  pTimer->setInterval(LongestShown);
  QObject::connect(pTimer, &QTimer::timeout, pWindow, [pWindow] {
    if (!pWindow->isVisible()) return;
    ADD_FAILURE() << "a window is still open: " << pWindow->windowTitle().toStdString();
    CloseAll();
  });
  pTimer->start();
}

// Closes the window as a user does, unless it is closed.
void RunWindowScript(const QPointer<QWidget>& window, const Driver::Script& script) {
  RunScript(script);
  if (window && window->isVisible()) window->close();
}

void SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* const pWindow = UsedWindow();
  ASSERT_NE(pWindow, nullptr) << "no window takes a key";
  QTest::keyClick(pWindow->windowHandle(), key, modifiers);
}

// What the window has put on the screen, once it has painted what it was asked to.
QImage ScreenOf(const Control& control) {
  Driver::Wait(RepaintMilliseconds);
  const QWindow& window = WindowOf(control);
  return window.screen()->grabWindow(window.winId()).toImage();
}

Rgb ToRgb(const QColor& color) { return {color.red(), color.green(), color.blue()}; }

}  // namespace

void Driver::ShowModal(Form& form, const Script& script) {
  QWidget* const pWindow = &Area(form);
  WatchFor(pWindow);
  Poll(pWindow, [pWindow, script] {
    if (!IsUp(pWindow)) return false;
    RunWindowScript(pWindow, script);
    return true;
  });
  form.ShowModal();
}

void Driver::WhenWindowOpens(const Script& script) {
  const QPointer<QWidget> before = UsedWindow();
  Poll(qApp, [before, script] {
    QWidget* const pWindow = UsedWindow();
    if (pWindow == nullptr || pWindow == before) return false;
    WatchFor(pWindow);
    RunWindowScript(pWindow, script);
    return true;
  });
}

void Driver::ForgetScripts() {
  for (QTimer* pTimer : qApp->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly))
    delete pTimer;
}

MessageAnswer Driver::ShowMessage(const std::string& sText, MessageButtons buttons,
                                  const std::string& sTitle) {
  return ShowMessageBox(sText, MessageIcon::Information, buttons, sTitle);
}

std::string Driver::MessageText() {
  const auto* pBox = qobject_cast<QMessageBox*>(UsedWindow());
  return pBox != nullptr ? FromQString(pBox->text()) : "";
}

void Driver::Answer(MessageAnswer button) {
  const auto* pBox = qobject_cast<QMessageBox*>(UsedWindow());
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

void Driver::Click(const Control& control, Twips x, Twips y) {
  Press(control, x, y);
  Release(control, x, y);
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

std::string Driver::WindowTitle() {
  const QWidget* pWindow = UsedWindow();
  return pWindow != nullptr ? FromQString(pWindow->windowTitle()) : "";
}

void Driver::CloseWindow() {
  if (QWidget* pWindow = UsedWindow()) pWindow->close();
}

std::string Driver::ReadText(const Control& control) {
  QAccessibleInterface* pAccessible =
      QAccessible::queryAccessibleInterface(control.Get().widget.data());
  if (pAccessible == nullptr || !pAccessible->isValid()) return "";
  const QString value = pAccessible->text(QAccessible::Value);
  return FromQString(value.isEmpty() ? pAccessible->text(QAccessible::Name) : value);
}

namespace {

const char* NameOf(QAccessible::Role role) {
  switch (role) {
    case QAccessible::List:
      return "list";
    case QAccessible::ListItem:
      return "list item";
    case QAccessible::Button:
      return "button";
    case QAccessible::StaticText:
      return "text";
    case QAccessible::ScrollBar:
      return "scroll bar";
    default:
      return "other";
  }
}

QAccessibleInterface* AccessibleOf(const Control& control) {
  return QAccessible::queryAccessibleInterface(&Area(control));
}

std::string DescriptionOf(QAccessibleInterface* pAccessible) {
  const QAccessible::State state = pAccessible->state();
  return std::string(NameOf(pAccessible->role())) + " <" +
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

std::string Driver::TooltipOver(const Control& control) {
  QToolTip::hideText();  // in a moment
  if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); }))
    ADD_FAILURE() << "a tooltip does not go";
  QTest::mouseMove(&WindowOf(control), MiddleOf(control) + QPoint(1, 0));
  QTest::mouseMove(&WindowOf(control), MiddleOf(control));
  if (!QTest::qWaitFor([] { return QToolTip::isVisible(); }, LongestTooltipDelay)) return "";
  const QString text = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
  for (const QWidget* pWindow : QApplication::topLevelWidgets()) {
    if (!pWindow->inherits("QTipLabel") || !pWindow->isVisible()) continue;
    const QRect screen = pWindow->screen()->geometry().adjusted(-1, -1, 1, 1);  // Qt's last pixel
    EXPECT_TRUE(screen.contains(pWindow->geometry())) << "the tooltip leaves the screen";
    EXPECT_LT(pWindow->width(), WindowOf(control).width()) << "the tooltip does not wrap";
  }
  return FromQString(text);
}

Rgb Driver::PixelAt(const Control& control, int nX, int nY) {
  return ToRgb(ScreenOf(control).pixelColor(InWindow(control, QPoint(nX, nY))));
}

std::vector<std::vector<Rgb>> Driver::PixelsOf(const Control& control) {
  const QImage image = ScreenOf(control).copy(QRect(InWindow(control, {}), Area(control).size()));
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
