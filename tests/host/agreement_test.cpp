#include "app/agreement.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>

#include "systems/host/toolkit_native.h"
#include "testing/driver.h"

namespace trelin {
namespace {

// ./test runs it at more resolutions and in more fonts than the other tests.
TEST(AgreementWindow, ShowsItsTextWholeWithALineToSpare) {
  frmMicrosoft form;
  Driver::ShowModal(form, [&] {
    auto& box = static_cast<QPlainTextEdit&>(*form.txtAgreement.Get().widget);
    EXPECT_FALSE(box.textCursor().hasSelection());
    EXPECT_FALSE(box.windowIcon().isNull());
    const int nLine = box.fontMetrics().lineSpacing();
    const auto endOfText = [&] {
      box.moveCursor(QTextCursor::End);
      return box.cursorRect().bottom();
    };
    EXPECT_LE(endOfText() + nLine, box.viewport()->height());
    EXPECT_GT(endOfText(), 18 * nLine);
  });
}

}  // namespace
}  // namespace trelin
