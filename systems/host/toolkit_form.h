#pragma once

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include "seam/toolkit.h"
#include "shared/key_buttons.h"
#include "systems/host/toolkit_loop.h"

namespace trelin {

// A control's place in the tab order, an int; without it there is none.
constexpr const char* TabIndexProperty = "tabIndex";

// False where Tab passes over a control that has a place, a bool.
constexpr const char* TabStopProperty = "tabStop";

// The window of a Form. It filters the keys of all its controls, so that
// Enter, Esc and Tab are answered in one place.
class FormWidget : public QWidget {
 public:
  FormWidget(Form& form, FormBorder border, bool bShowInTaskbar, QSize client);

  void ShowModal();
  void Unload();
  bool Loaded() const { return bLoaded_; }

  // Whether this window's loop is the one that receives events.
  bool ReceivesEvents() const { return loop_ != nullptr && loop_ == ModalLoop::Innermost(); }

  // At once, or when the window is shown.
  void GiveFocus(QWidget& area);

  // Whether keys are used, so that the focus is to be seen.
  void ShowFocus(bool bShow);
  bool ShowsFocus() const { return bShowsFocus_; }

  void SetDefault(QPushButton& button) { buttons_.SetDefault(button); }
  void SetCancel(QPushButton& button) { buttons_.SetCancel(button); }
  bool AnswersEnter(const QPushButton& button) const;

  bool eventFilter(QObject* pObject, QEvent* pEvent) override;

 protected:
  void keyPressEvent(QKeyEvent* pEvent) override;
  void closeEvent(QCloseEvent* pEvent) override;
  bool focusNextPrevChild(bool bNext) override;

 private:
  bool AnswerKey(const QKeyEvent& event);
  QPushButton* FocusedButton() const;
  // Where Tab leads, or null; from no control, the first.
  QWidget* NextStop(const QWidget* pFocused, bool bNext) const;
  void Open();
  void FocusFirst();

  Form& form_;
  bool bShowInTaskbar_;
  bool bLoaded_ = false;
  bool bShowsFocus_ = false;
  WindowLoop* loop_ = nullptr;  // while shown
  KeyButtons<QPushButton, QPointer<QPushButton>> buttons_;
  QPointer<QWidget> wanted_;  // takes the focus when the window is shown
};

// The window that a widget of this toolkit stands on, or is.
FormWidget& FormOf(QWidget& widget);

}  // namespace trelin
