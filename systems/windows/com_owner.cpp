#include "systems/windows/com_owner.h"

namespace trelin {

namespace {

class ComSetup {
 public:
  ComSetup() : lResult_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~ComSetup() {
    if (SUCCEEDED(lResult_)) CoUninitialize();
  }
  ComSetup(const ComSetup&) = delete;
  ComSetup& operator=(const ComSetup&) = delete;

 private:
  HRESULT lResult_;
};

}  // namespace

void SetUpCom() { static const ComSetup com; }

}  // namespace trelin
