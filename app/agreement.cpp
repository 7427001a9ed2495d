#include "app/agreement.h"

#include "app/center_form.h"

namespace trelin {

namespace {

// Fits its text box whole, with a line to spare, at each resolution. There is no
// scroll bar: who makes it longer has to look.
constexpr const char* AgreementText =
    "    The measurement solution that you are about to install works together with products "
    "of Microsoft Corporation. Some of them come integrated into the measurement software; "
    "others were pre-installed on this workstation. They are called the Microsoft products "
    "here.\r\n"
    "    Each of the Microsoft products remains subject to its own end-user license agreement "
    "with Microsoft. That agreement came with the product or is shown when the product is "
    "first started. Nothing in the license of the measurement software replaces, widens or "
    "restricts it. By using the measurement solution you use the Microsoft products, and you "
    "are asked to read their agreements and to keep to them.\r\n"
    "    The Microsoft products are supplied as parts of the measurement solution, to be used "
    "together with it on this workstation. They may not be copied to other computers, passed "
    "on or used separately, unless their own agreements permit it. Questions about them are "
    "answered by the supplier of your measurement solution.\r\n"
    "    Choose Yes if you accept that the Microsoft products are subject to their own "
    "agreements. The setup menu of the suite then opens.\r\n"
    "    If you choose No, the measurement solution will not operate: setup ends and nothing "
    "is installed. You can start Trelin again at any time.\r\n"
    "    Do you accept the agreements of the Microsoft products?";

}  // namespace

frmMicrosoft::frmMicrosoft()
    : Form(FormBorder::Sizable, false, 6330, 5610),
      txtAgreement(*this),
      cmdYes(*this),
      cmdNo(*this) {
  SetIcon(Picture::ProgramIcon());
  SetCaption("Microsoft Product Integration Agreement");
  txtAgreement.SetBounds(150, 120, 5985, 4815);
  txtAgreement.SetText(AgreementText);
  txtAgreement.SetTabIndex(0);
  cmdYes.SetBounds(1950, 5160, 1125, 345);
  cmdYes.SetCaption("&Yes");
  cmdYes.SetTabIndex(1);
  cmdYes.SetDefault();
  cmdNo.SetBounds(3165, 5160, 1125, 345);
  cmdNo.SetCaption("&No");
  cmdNo.SetTabIndex(2);
  cmdNo.SetCancel();

  OnLoad = [this] { Form_Load(); };
  cmdYes.OnClick = [this] { cmdYes_Click(); };
  cmdNo.OnClick = [this] { cmdNo_Click(); };
}

std::int16_t frmMicrosoft::Invoke() {
  AgreementResult = Declined;
  ShowModal();
  return AgreementResult;
}

void frmMicrosoft::Form_Load() { CenterForm(*this); }

void frmMicrosoft::cmdYes_Click() {
  AgreementResult = Accepted;
  Unload();
}

void frmMicrosoft::cmdNo_Click() {
  AgreementResult = Declined;
  Unload();
}

}  // namespace trelin
