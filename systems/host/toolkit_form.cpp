#include "systems/host/toolkit_form.h"

#include <QApplication>
#include <QIcon>
#include <memory>
#include <optional>

#include "shared/at_exit.h"
#include "shared/tab_order.h"
#include "systems/host/toolkit_box.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"
#include "systems/host/toolkit_picture.h"
#include "systems/host/toolkit_taskbar.h"

namespace trelin {

namespace {

Qt::WindowFlags Flags(bool bShowInTaskbar) {
  return (bShowInTaskbar ? Qt::Window : Qt::Dialog) | Qt::CustomizeWindowHint |
         Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
}

std::optional<int> TabIndex(const QWidget& widget) {
  const QVariant index = widget.property(TabIndexProperty);
  return index.isValid() ? std::optional(index.toInt()) : std::nullopt;
}

bool IsTabStop(const QWidget& widget) {
  const QVariant stop = widget.property(TabStopProperty);
  return TabIndex(widget) && (!stop.isValid() || stop.toBool());
}

}  // namespace

FormWidget& FormOf(QWidget& widget) { return static_cast<FormWidget&>(*widget.window()); }

FormWidget::FormWidget(Form& form, FormBorder border, bool bShowInTaskbar, QSize client)
    : QWidget(nullptr, Flags(bShowInTaskbar)), form_(form), bShowInTaskbar_(bShowInTaskbar) {
  border == FormBorder::FixedSingle ? setFixedSize(client) : resize(client);
  connect(qApp, &QApplication::focusChanged, this, [this] {
    if (QWidget* pDefault = buttons_.Default())
      pDefault->update();  // it is drawn as default while it answers Enter
  });
}

void FormWidget::ShowModal() {
  if (loop_ != nullptr) return;
  if (!std::exchange(bLoaded_, true)) Raise(form_.OnLoad);
  if (!bLoaded_) return;

  if (ModalLoop::Innermost() != nullptr) setWindowModality(Qt::ApplicationModal);
  WindowLoop loop(*this);
  loop_ = &loop;
  const AtExit close([this] {
    hide();
    loop_ = nullptr;
  });
  Open();
  loop.Run();
}

void FormWidget::Open() {
  show();
  if (!bShowInTaskbar_) LeaveTaskbar(*this);
  activateWindow();
  FocusFirst();
}

void FormWidget::Unload() {
  if (!std::exchange(bLoaded_, false)) return;
  const AtExit close([this] {
    hide();
    if (loop_ != nullptr) loop_->End();
  });
  Raise(form_.OnUnload);
}

void FormWidget::closeEvent(QCloseEvent* pEvent) {
  pEvent->ignore();
  DispatchInput([this] { Unload(); });
}

void FormWidget::ShowFocus(bool bShow) {
  if (std::exchange(bShowsFocus_, bShow) == bShow) return;
  if (auto* pArea = dynamic_cast<BoxArea*>(focusWidget())) pArea->Refresh();
}

bool FormWidget::eventFilter(QObject* /*pObject*/, QEvent* pEvent) {
  if (pEvent->type() == QEvent::MouseButtonPress) ShowFocus(false);
  return pEvent->type() == QEvent::KeyPress && AnswerKey(static_cast<QKeyEvent&>(*pEvent));
}

void FormWidget::keyPressEvent(QKeyEvent* pEvent) { AnswerKey(*pEvent); }

bool FormWidget::AnswerKey(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
    return false;
  using Key = decltype(buttons_)::Key;
  const auto press = [&](Key key) {
    QPushButton* const pButton = buttons_.Pressed(key, FocusedButton(), event.isAutoRepeat());
    if (pButton != nullptr) pButton->click();
  };
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      press(Key::Enter);
      return true;
    case Qt::Key_Escape:
      press(Key::Escape);
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      ShowFocus(true);
      focusNextPrevChild(event.key() == Qt::Key_Tab);
      if (auto* pArea = dynamic_cast<BoxArea*>(focusWidget())) pArea->DispatchKey(BoxKey::Reach);
      return true;
    default:
      return false;
  }
}

QPushButton* FormWidget::FocusedButton() const { return qobject_cast<QPushButton*>(focusWidget()); }

bool FormWidget::AnswersEnter(const QPushButton& button) const {
  return button.isEnabled() && buttons_.EnterButton(FocusedButton()) == &button;
}

QWidget* FormWidget::NextStop(const QWidget* pFocused, bool bNext) const {
  std::vector<QWidget*> stops;
  std::vector<int> indexes;
  for (QWidget* pWidget : findChildren<QWidget*>()) {
    if (!IsTabStop(*pWidget) || !pWidget->isEnabled() || !pWidget->isVisibleTo(this)) continue;
    stops.push_back(pWidget);
    indexes.push_back(*TabIndex(*pWidget));
  }
  const auto from = pFocused != nullptr ? TabIndex(*pFocused) : std::nullopt;
  const std::optional<std::size_t> next = NextTabStop(indexes, from, bNext);
  return next ? stops[*next] : nullptr;
}

bool FormWidget::focusNextPrevChild(bool bNext) {
  QWidget* const pNext = NextStop(focusWidget(), bNext);
  if (pNext != nullptr) pNext->setFocus(bNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return pNext != nullptr;
}

void FormWidget::GiveFocus(QWidget& area) {
  if (isVisible()) {
    area.setFocus();
  } else {
    wanted_ = &area;
  }
}

void FormWidget::FocusFirst() {
  QWidget* pFirst = NextStop(nullptr, true);
  if (wanted_ && wanted_->isEnabled() && wanted_->isVisible()) pFirst = wanted_;
  wanted_.clear();
  (pFirst != nullptr ? pFirst : this)->setFocus();
}

Form::Form(FormBorder border, bool bShowInTaskbar, Twips clientWidth, Twips clientHeight)
    : Control(std::make_unique<Native>(new FormWidget(
          *this, border, bShowInTaskbar, QSize(PixelsX(clientWidth), PixelsY(clientHeight))))) {}

Form::~Form() = default;

void Form::SetCaption(const std::string& sCaption) {
  native_->widget->setWindowTitle(ToQString(sCaption));
}

std::string Form::Caption() const { return FromQString(native_->widget->windowTitle()); }

void Form::SetIcon(const Picture& picture) {
  native_->widget->setWindowIcon(QIcon(QPixmap::fromImage(picture.Get().image)));
}

void Form::Move(Twips left, Twips top) { native_->widget->move(PixelsX(left), PixelsY(top)); }

void Form::ShowModal() { FormOf(*native_->widget).ShowModal(); }

void Form::Unload() { FormOf(*native_->widget).Unload(); }

bool Form::Loaded() const { return FormOf(*native_->widget).Loaded(); }

}  // namespace trelin
