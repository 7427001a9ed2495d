#include "systems/host/toolkit_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <vector>

#include "systems/host/toolkit_box.h"
#include "systems/host/toolkit_form.h"

namespace trelin {

namespace {

QAccessible::Role ToQtRole(BoxRole role) {
  switch (role) {
    case BoxRole::List:
      return QAccessible::List;
    case BoxRole::ListItem:
      return QAccessible::ListItem;
    case BoxRole::Button:
      return QAccessible::Button;
    case BoxRole::Pane:
      break;
  }
  return QAccessible::Client;
}

// A box within another is told without its frame, so that the items of a list
// are its children.
class BoxAccessible : public QAccessibleWidget {
 public:
  explicit BoxAccessible(BoxArea& area)
      : QAccessibleWidget(&area, ToQtRole(area.Role())), area_(area) {}

  QAccessibleInterface* parent() const override {
    QWidget* const pFrame = area_.parentWidget();
    auto* const pOuter = dynamic_cast<BoxArea*>(pFrame->parentWidget());
    return QAccessible::queryAccessibleInterface(pOuter != nullptr ? pOuter : pFrame);
  }
  int childCount() const override { return static_cast<int>(Children().size()); }
  QAccessibleInterface* child(int nIndex) const override {
    const std::vector<QWidget*> children = Children();
    const bool bThere = nIndex >= 0 && nIndex < static_cast<int>(children.size());
    return bThere
               ? QAccessible::queryAccessibleInterface(children[static_cast<std::size_t>(nIndex)])
               : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* pChild) const override {
    const std::vector<QWidget*> children = Children();
    const auto place = std::find(children.begin(), children.end(), pChild->object());
    return place != children.end() ? static_cast<int>(place - children.begin()) : -1;
  }

  QAccessible::Role role() const override { return ToQtRole(area_.Role()); }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = area_.Role() != BoxRole::Pane;
    state.selectable = area_.Role() == BoxRole::ListItem;
    state.selected = area_.Selected();
    return state;
  }

  QStringList actionNames() const override {
    return area_.CanAct() ? QStringList{pressAction()} : QStringList{};
  }
  // The client does not wait for what comes of it, which may be a message box.
  void doAction(const QString& name) override {
    if (name == pressAction() && area_.CanAct())
      QCoreApplication::postEvent(&area_, new QEvent(BoxArea::ActEvent));  // Qt deletes it
  }

 private:
  // The widgets in the box that are not hidden themselves, even if the box is. A hidden
  // row is no item.
  std::vector<QWidget*> Children() const {
    std::vector<QWidget*> children;
    for (QObject* pObject : area_.children()) {
      auto* const pWidget = qobject_cast<QWidget*>(pObject);
      if (pWidget == nullptr || pWidget->isHidden()) continue;
      auto* const pFrame = dynamic_cast<BoxFrame*>(pWidget);
      children.push_back(pFrame != nullptr ? &pFrame->Area() : pWidget);
    }
    return children;
  }

  BoxArea& area_;
};

// Qt takes a window that is nothing but a widget for a part of one.
class WindowAccessible : public QAccessibleWidget {
 public:
  explicit WindowAccessible(FormWidget& form) : QAccessibleWidget(&form, QAccessible::Window) {}
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* pObject) {
  if (auto* const pArea = dynamic_cast<BoxArea*>(pObject)) return new BoxAccessible(*pArea);
  if (auto* const pForm = dynamic_cast<FormWidget*>(pObject)) return new WindowAccessible(*pForm);
  return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(MakeAccessible); }

}  // namespace trelin
