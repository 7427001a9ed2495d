// Reads a setup list as the launcher does, with the registry's records, and
// writes what the user would see of it, for the test of the documents:
//
//   docs_reader LIST REGISTRY_FOLDER
//   docs_reader --start COMMAND_LINE     starts a program as Setup does
//
//   beep
//   message|TITLE|TEXT          a message box
//   product|TITLE|STATUS|WHY    WHY: what Setup says when a prerequisite is not met
//   error|TITLE|TEXT            the launcher's last message box
//
// On Linux the registry is the file registry.reg of that folder, which ends with
// a slash.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "real_platform.h"
#include "seam/console.h"
#include "seam/platform.h"
#include "suite/list_model.h"
#include "suite/setup_list.h"
#include "texts/error.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

void Say(const std::vector<std::string>& parts) {
  std::string sLine;
  for (const std::string& sPart : parts) sLine += (sLine.empty() ? "" : "|") + sPart;
  std::replace(sLine.begin(), sLine.end(), '\n', ' ');
  WriteOutput(Utf8Of(sLine) + "\n");
}

// The system below, but what would be seen and heard is written down.
class WatchedSystem : public RealSystem {
 public:
  void Beep() override { Say({"beep"}); }
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon /*icon*/,
                            MessageButtons /*buttons*/, const std::string& sTitle) override {
    Say({"message", sTitle, sText});
    return MessageAnswer::Ok;
  }
};

void ShowMenu(const std::string& sList) {
  SetupList objSetupList;
  objSetupList.Initialize();
  objSetupList.LoadFromFile(sList);
  ListModel(objSetupList).Load();
  for (std::int32_t i = 1; i <= objSetupList.MenuItems().Count(); ++i) {
    const auto objItem = objSetupList.MenuItems().Item(i);
    const bool bMet = objItem->CheckDependencies();
    Say({"product", objItem->Title(), objItem->Status(), bMet ? "" : objSetupList.LastError()});
  }
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments) {
  const auto registry = RealRegistry(Utf8Of(arguments.at(1)));
  WatchedSystem system;
  const PlatformScope scope({registry.get(), &TheStringLibraries(), &system});
  ResetStringResources();
  InitStringResources(1033);
  try {
    if (arguments[0] == "--start")
      system.StartProgram(ProgramPath(Utf8Of(arguments[1])));
    else
      ShowMenu(ProgramPath(Utf8Of(arguments[0])));
  } catch (...) {
    const ErrorReport report = CurrentError();
    Say({"error", report.sSource, report.sDescription});
  }
  return 0;
}

}  // namespace trelin
