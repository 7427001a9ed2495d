// The read-me program of the demonstration suite: shows the text file that its
// command line names, from its own folder.

#include <optional>
#include <string>

#include "app/center_form.h"
#include "seam/entry.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "seam/toolkit.h"
#include "shared/read_file.h"
#include "texts/error.h"
#include "texts/paths.h"

namespace trelin::demo {

namespace {

std::string ReadText(const std::string& sPath) {
  std::optional<std::string> sText = ReadWholeFile(*TheSystem().OpenInput(sPath));
  if (!sText) throw PlatformError("read the file", sPath, "it is too large to be shown");
  return *sText;
}

void ShowText(const std::string& sFile) {
  const std::string sText = ReadText(ProgramFile(sFile));

  Form form(FormBorder::FixedSingle, true, 7200, 5700);
  form.SetCaption("Read Me - " + sFile);
  form.SetIcon(Picture::ProgramIcon());
  TextBox txtText(form);
  txtText.SetBounds(120, 120, 6960, 4920);
  txtText.SetText(sText);
  txtText.SetTabIndex(1);
  Button cmdClose(form);
  cmdClose.SetBounds(5955, 5205, 1125, 345);
  cmdClose.SetCaption("Close");
  cmdClose.SetDefault();
  cmdClose.SetCancel();
  cmdClose.SetTabIndex(0);
  cmdClose.OnClick = [&form] { form.Unload(); };
  CenterForm(form);
  form.ShowModal();
}

}  // namespace

}  // namespace trelin::demo

void trelin::Main() {
  try {
    const std::string sFile = TheSystem().CommandLineText();
    demo::ShowText(sFile.empty() ? "suite.txt" : sFile);
  } catch (...) {
    ExitCode() = 1;
    TheSystem().ShowMessage(CurrentError().sDescription, MessageIcon::Critical, MessageButtons::Ok,
                            "Read Me");
  }
}
