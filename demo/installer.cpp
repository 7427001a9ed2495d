// The installer of every demonstration product: copied under the product's
// installer name, it looks itself up in the suite's setup list and leaves what
// a real installer leaves: a check file and an installation record.

#include <cstdint>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "app/center_form.h"
#include "demo/write_file.h"
#include "seam/entry.h"
#include "seam/platform.h"
#include "seam/toolkit.h"
#include "suite/block_parser.h"
#include "suite/reg_entry.h"
#include "texts/error.h"
#include "texts/paths.h"
#include "texts/string_resources.h"
#include "texts/text.h"

namespace trelin::demo {

namespace {

constexpr std::int32_t InstallMilliseconds = 1500;
constexpr std::int32_t CloseMilliseconds = 4000;

struct Product {
  std::string Title;
  std::string Code;
  std::string Revision;
  std::string InstallFile;
};

void SetProperty(Product& product, std::string_view sKey, std::string_view sValue) {
  if (sKey == "PRODUCT") product.Title = sValue;
  if (sKey == "PRODUCTCODE") product.Code = sValue;
  if (sKey == "REVISION") product.Revision = sValue;
  if (sKey == "INSTALLFILE") product.InstallFile = sValue;
}

// Reads the rest of a product's block; its prerequisites are passed over.
Product ReadProduct(BlockParser& parser) {
  Product product;
  for (int nDepth = 1; nDepth > 0;) {
    const BlockParser::Token token = parser.GetToken();
    if (token == BlockParser::TokenEndFile()) break;
    if (token == BlockParser::TokenStartBlock()) ++nDepth;
    if (token == BlockParser::TokenEndBlock()) --nDepth;
    if (token == BlockParser::TokenKeyValue() && nDepth == 1)
      SetProperty(product, parser.Key(), parser.Value());
  }
  return product;
}

// The product of the setup list whose installer has this program's name.
Product FindOwnProduct() {
  const std::string sList = ProgramFile("TRELIN.CFG");
  const std::string sName = ProgramName();
  BlockParser parser;
  parser.OpenFile(sList, false);
  for (;;) {
    const BlockParser::Token token = parser.GetToken();
    if (token == BlockParser::TokenEndFile())
      throw std::runtime_error("There is no product in \"" + sList +
                               "\" whose installer is named \"" + sName + "\".");
    if (token != BlockParser::TokenStartBlock() || parser.BlockType() != "APPLICATION") continue;
    const Product product = ReadProduct(parser);
    if (UpperCase(product.InstallFile) == UpperCase(sName)) return product;
  }
}

// The check file first: the launcher must never see a record without it.
void Install(const Product& product) {
  if (product.Code.empty() || product.Revision.empty())
    throw std::runtime_error("The setup list gives no product code or no revision for \"" +
                             product.Title + "\", so its installation cannot be recorded.");
  const std::string sCheckFile = ProgramFile("Installed\\" + product.Code + ".txt");
  WriteFile(sCheckFile, product.Title + ", revision " + product.Revision + "\r\n");

  RegEntry objReg;
  objReg.CreateKey("InstallLog");
  objReg.SetString(product.Code + "CheckFile", sCheckFile);
  objReg.SetString(product.Code, product.Revision);
  std::cout << "Installed " << product.Title << ", revision " << product.Revision << "."
            << std::endl;
}

// Installs when its time has come, unless the user closes it before.
class InstallerWindow {
 public:
  explicit InstallerWindow(const Product& product);

  // Whether the product was installed. Throws what the installation throws.
  bool Run();

 private:
  void Timer_Timer();

  const Product& product_;
  bool bInstalled_ = false;
  Form form_{FormBorder::FixedSingle, true, 5400, 1800};
  Label lblTitle_{form_};
  Label lblText_{form_};
  Button cmdClose_{form_};
  Timer timer_{form_};
};

InstallerWindow::InstallerWindow(const Product& product) : product_(product) {
  form_.SetCaption("Demonstration Setup");
  form_.SetIcon(Picture::ProgramIcon());
  lblTitle_.SetBounds(240, 180, 4920, 315);
  lblTitle_.SetFont({9.75F, true, false});
  lblTitle_.SetCaption(product.Title + " " + product.Revision);
  lblText_.SetBounds(240, 570, 4920, 585);
  lblText_.SetCaption("The product is being installed. Please wait a moment.");
  cmdClose_.SetBounds(4035, 1275, 1125, 345);
  cmdClose_.SetCaption("Cancel");
  cmdClose_.SetDefault();
  cmdClose_.SetCancel();
  cmdClose_.SetTabIndex(0);
  cmdClose_.OnClick = [this] { form_.Unload(); };
  timer_.SetInterval(InstallMilliseconds);
  timer_.OnTimer = [this] { Timer_Timer(); };
}

bool InstallerWindow::Run() {
  CenterForm(form_);
  timer_.SetEnabled(true);
  form_.ShowModal();
  return bInstalled_;
}

void InstallerWindow::Timer_Timer() {
  timer_.SetEnabled(false);
  if (bInstalled_) {
    form_.Unload();
    return;
  }
  Install(product_);
  bInstalled_ = true;
  lblText_.SetCaption(
      "The product has been installed. This window closes by itself in a few seconds.");
  cmdClose_.SetCaption("Close");
  timer_.SetInterval(CloseMilliseconds);
  timer_.SetEnabled(true);
}

void RunInstaller(bool bQuiet) {
  ResetStringResources();
  InitStringResources(1033);
  const Product product = FindOwnProduct();
  if (bQuiet) {
    Install(product);
  } else if (InstallerWindow window(product); !window.Run()) {
    std::cout << product.Title << " was not installed." << std::endl;
    ExitCode() = 1;
  }
}

}  // namespace

}  // namespace trelin::demo

// With "/quiet" on the command line it installs at once, without a window.
void trelin::Main() {
  const bool bQuiet = TheSystem().CommandLineText() == "/quiet";
  try {
    demo::RunInstaller(bQuiet);
  } catch (...) {
    ExitCode() = 1;
    const std::string sText = "The installation failed. " + CurrentError().sDescription;
    std::cerr << sText << std::endl;
    if (!bQuiet)
      TheSystem().ShowMessage(sText, MessageIcon::Critical, MessageButtons::Ok,
                              "Demonstration Setup");
  }
}
