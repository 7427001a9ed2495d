#include "platform/entry.h"
#include "platform/platform.h"
#include "startup/agreement.h"
#include "startup/error.h"
#include "startup/start_up.h"

namespace trelin {

namespace {

void RunProgram() {
  if (!StartUp()) return;
  if (Agreement().Invoke() == frmMicrosoft::Declined) return;
  if (MainMenu().Initialize()) MainMenu().ShowModal();
}

}  // namespace

void Main() {
  try {
    RunProgram();
  } catch (...) {
    const ErrorReport report = CurrentError();
    TheSystem().ShowMessage(report.sDescription, MessageIcon::Critical, MessageButtons::Ok,
                            report.sSource);
  }
  CleanUp();
  ReleaseAgreement();
}

}  // namespace trelin
