#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "tests/windows/end_to_end/desktop.h"
#include "tests/windows/end_to_end/launcher.h"
#include "tests/windows/end_to_end/reg_program.h"
#include "tests/windows/end_to_end/suite_folder.h"

namespace end_to_end {

// Each test has a suite of its own and ends what it has started.
class LauncherTest : public ::testing::Test {
 protected:
  Menu OpenMenu(const std::wstring& sArguments = L"") {
    launcher.emplace(suite / "trelin.exe", sArguments);
    launcher->Window(FormClass, AgreementCaption);
    Type(VK_RETURN);
    return Menu(launcher->Window(FormClass, MenuCaption));
  }

  EmptyRecords records;
  SuiteFolder suite;
  std::optional<Launcher> launcher;
};

}  // namespace end_to_end
