#include "startup/agreement.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QScrollBar>

#include "platform/host/toolkit_native.h"
#include "tests/driver.h"

namespace trelin {
namespace {

// At 96 dots per inch, which the other resolutions' runs leave out.
TEST(Agreement, FitsItsTextBoxWhole) {
  frmMicrosoft form;
  Driver::ShowModal(form, [&] {
    const auto& box = static_cast<QPlainTextEdit&>(*form.txtAgreement.Get().widget);
    EXPECT_EQ(box.verticalScrollBar()->maximum(), 0) << "lines are out of view";
    EXPECT_FALSE(box.textCursor().hasSelection());
    form.txtAgreement.SetText(form.txtAgreement.Text() + "\r\n\r\n\r\n");
    EXPECT_GT(box.verticalScrollBar()->maximum(), 0) << "this test would not see a line too many";
  });
}

}  // namespace
}  // namespace trelin
