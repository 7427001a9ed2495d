#include <QPlainTextEdit>
#include <memory>

#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"

namespace trelin {

namespace {

QPlainTextEdit& EditOf(const TextBox& textBox) {
  return static_cast<QPlainTextEdit&>(*textBox.Get().widget);
}

}  // namespace

TextBox::TextBox(Form& form)
    : Control(std::make_unique<Native>(new QPlainTextEdit(form.Get().area))) {
  QPlainTextEdit& edit = EditOf(*this);
  edit.setReadOnly(true);
  edit.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  edit.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  edit.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  edit.document()->setDocumentMargin(1);
}

void TextBox::SetText(const std::string& sText) { EditOf(*this).setPlainText(ToQString(sText)); }

}  // namespace trelin
