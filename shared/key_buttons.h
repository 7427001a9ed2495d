#pragma once

namespace trelin {

// Which of a form's buttons answers Enter and which Esc. Pointer: how the toolkit
// keeps one that may go before the form does.
template <class Button, class Pointer = Button*>
class KeyButtons {
 public:
  enum class Key { Enter, Escape };

  void SetDefault(Button& button) { default_ = &button; }
  void SetCancel(Button& button) { cancel_ = &button; }
  Button* Default() const { return default_; }

  // Before the button goes, where Pointer does not see that.
  void Forget(const Button& button) {
    if (default_ == &button) default_ = nullptr;
    if (cancel_ == &button) cancel_ = nullptr;
  }

  // The button that Enter presses, or null. pFocused: the button that has the focus,
  // or null.
  Button* EnterButton(Button* pFocused) const {
    if (pFocused != nullptr) return pFocused;
    return default_;
  }

  // The button that a key presses, or null. A key that is held down presses once: a
  // window that has just opened must not take the rest for an answer of its own.
  Button* Pressed(Key key, Button* pFocused, bool bRepeated) const {
    if (bRepeated) return nullptr;
    if (key == Key::Enter) return EnterButton(pFocused);
    return cancel_;
  }

 private:
  Pointer default_ = nullptr;
  Pointer cancel_ = nullptr;
};

}  // namespace trelin
