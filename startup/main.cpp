#include "platform/entry.h"
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
    ShowFatalError();
  }
  CleanUp();
  ReleaseAgreement();
}

}  // namespace trelin
