#include "app/agreement.h"
#include "app/start_up.h"
#include "seam/entry.h"
#include "texts/error.h"

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
