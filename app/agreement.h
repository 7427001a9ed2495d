#pragma once

#include <cstdint>

#include "seam/toolkit.h"

namespace trelin {

// The agreement about the Microsoft products that are integrated into the
// measurement software, with a Yes and a No button.
class frmMicrosoft : public Form {
 public:
  static constexpr std::int16_t Accepted = 1;
  static constexpr std::int16_t Declined = 2;  // No, or closed in another way

  frmMicrosoft();

  // Shows the window until the user has answered; returns AgreementResult.
  std::int16_t Invoke();

  std::int16_t AgreementResult = Declined;

  TextBox txtAgreement;
  Button cmdYes;
  Button cmdNo;

 private:
  void Form_Load();
  void cmdYes_Click();
  void cmdNo_Click();
};

}  // namespace trelin
