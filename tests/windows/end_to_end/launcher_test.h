#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "tests/windows/end_to_end/desktop.h"
#include "tests/windows/end_to_end/launcher.h"
#include "tests/windows/end_to_end/reg_program.h"
#include "tests/windows/end_to_end/suite_folder.h"
#include "tests/windows/end_to_end/wait.h"

namespace end_to_end {

// Each test has a suite of its own and ends what it has started.
class LauncherTest : public ::testing::Test {
 protected:
  HWND OpenAgreement(const std::wstring& sArguments = L"") {
    launcher.reset();
    launcher.emplace(suite / "trelin.exe", sArguments);
    return launcher->Window(FormClass, AgreementCaption);
  }

  Menu OpenMenu(const std::wstring& sArguments = L"") {
    OpenAgreement(sArguments);
    Type(VK_RETURN);
    return Menu(launcher->Window(FormClass, MenuCaption));
  }

  static void Select(const Menu& menu, int nRow) {
    Click(menu.rows.at(nRow).hTitle);
    ExpectSoon(true, "the selection of row " + NumberOf(nRow), [&] { return menu.IsCyan(nRow); });
  }

  static std::string NumberOf(int nRow) { return std::to_string(nRow + 1); }

  EmptyRecords records;
  SuiteFolder suite;
  std::optional<Launcher> launcher;
};

}  // namespace end_to_end
