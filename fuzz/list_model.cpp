// The input describes products, then what the user, the clock and installers
// do. The menu's list is compared with what this file says it should be.

#include "suite/list_model.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/platform.h"
#include "fuzz/target.h"

namespace trelin {

namespace {

constexpr int MostSteps = 32;  // more would decide little and take as long again

const std::string Log = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog";
const std::string OfferedRevision = "2.0";

struct Product {
  bool bCode = false;
  bool bReadMe = false;
  std::size_t nRequired = 0;  // the product that it requires, from 1; 0: none
};

std::string CodeOf(std::size_t nProduct) { return "P" + std::to_string(nProduct); }

std::string Text(std::int32_t lId) { return std::to_string(lId); }

std::string SetupListText(const std::vector<Product>& products) {
  std::string sText = "BLOCK SETUPLIST\n";
  for (std::size_t i = 1; i <= products.size(); ++i) {
    const Product& product = products[i - 1];
    sText += "BLOCK APPLICATION\nREVISION=" + OfferedRevision + '\n';
    if (product.bCode) sText += "PRODUCTCODE=" + CodeOf(i) + '\n';
    if (product.bReadMe) sText += "READMEFILE=readme.exe\n";
    if (product.nRequired != 0)
      sText += "BLOCK DEPENDENCY\nREVISION=2.0\nPRODUCTCODE=" + CodeOf(product.nRequired) +
               "\nTITLE=x\nEND\n";
    sText += "END\n";
  }
  return sText + "END\n";
}

class Session {
 public:
  explicit Session(Input& input) : input_(input) {
    for (std::size_t n = input_.Below(10); n > 0; --n)
      products_.push_back({input_.Flag(), input_.Flag(), input_.Below(10)});
    platform_.system.files = {{"C:\\there", ""},
                              {"C:\\Suite\\TRELIN.CFG", SetupListText(products_)}};
    list_.Initialize();
    list_.LoadFromFile("C:\\Suite\\TRELIN.CFG");
    model_.Load();
    statuses_.assign(products_.size(), Text(35015));
    CheckView();
  }

  void Run() {
    for (int n = 0; n < MostSteps && !input_.Empty(); ++n) {
      Step(input_.Below(8));
      CheckView();
    }
    Check(platform_.registry.OpenHandles() == 0, "the registry's keys are closed");
  }

 private:
  void Step(std::size_t nKind) {
    if (nKind == 0) return Scroll();
    if (nKind == 1) return Record();
    if (nKind == 2) return SwitchFaults();
    if (nKind == 3) return Move();
    if (nKind == 4) return Release();
    if (nKind == 5) return Tick();
    if (nKind == 6) return Setup();
    if (!products_.empty()) PressRow();
  }

  // As the scroll bar does: within its range.
  void Scroll() {
    const auto nRange = static_cast<std::size_t>(model_.MaxTopIndex());
    nTop_ = static_cast<std::int16_t>(1 + input_.Below(nRange));
    model_.ScrollTo(nTop_);
  }

  void PressRow() {
    const std::size_t nRow = input_.Below(static_cast<std::size_t>(model_.nVisibleRows()));
    if (input_.Flag()) {
      model_.PressIcon(static_cast<std::int16_t>(nRow));
      bCaptured_ = bPressed_ = true;
    } else {
      model_.Select(static_cast<std::int16_t>(nRow));
    }
    nCurrent_ = static_cast<std::size_t>(nTop_) + nRow;
  }

  void Move() {
    const bool bInside = input_.Flag();
    const bool bChanges = bCaptured_ && bPressed_ != bInside;
    Check(model_.MovePointer(bInside) == bChanges, "a move changes the icon at the box's edge");
    if (bCaptured_) bPressed_ = bInside;
  }

  void Release() {
    const bool bInside = input_.Flag();
    const ListModel::Release release = model_.ReleaseIcon(bInside);
    Check(release.bRunSetup == (bCaptured_ && bInside), "Setup runs for a release over the icon");
    Check(release.bRepaint == bPressed_, "an icon that was pressed is drawn anew");
    bCaptured_ = bPressed_ = false;
  }

  // An installer writes a record or takes one away.
  void Record() {
    static const std::array<std::string, 7> Revisions = {
        "", "1.0", "2.0", " 2.0  ", "2.0a", "10", std::string(300, '3')};
    static const std::array<std::string, 3> Files = {"", "C:\\there", "C:\\gone"};
    const std::size_t nCode = 1 + input_.Below(9);
    const std::string& sRevision = Revisions.at(input_.Below(Revisions.size()));
    const std::string& sFile = Files.at(input_.Below(Files.size()));
    platform_.registry.SetText(Log, CodeOf(nCode), sRevision);
    platform_.registry.SetText(Log, CodeOf(nCode) + "CheckFile", sFile);
    records_.at(nCode) = {sRevision.size() > 255 ? "" : sRevision, sFile};
    bRecorded_ = true;
  }

  void SwitchFaults() {
    bRefused_ = input_.Flag();
    platform_.registry.ClearFaults();
    if (bRefused_) platform_.registry.RefuseAccess(Log);
  }

  bool LogOpens() const { return !bRefused_ && bRecorded_; }

  std::string ExpectedStatus(std::size_t nProduct) const {
    if (!products_[nProduct - 1].bCode || !LogOpens()) return Text(35015);
    const auto& [sRevision, sFile] = records_.at(nProduct);
    if (sFile == "C:\\gone") return Text(35032);
    if (sRevision.empty()) return Text(35015);
    if (sRevision == "2.0" || sRevision == " 2.0  ") return Text(35016);
    return Text(sRevision == "2.0a" ? 35018 : 35017);
  }

  void Tick() {
    if (nCurrent_ == 0) return;
    const auto item = list_.ActiveItem();
    item->CheckInstallation();
    const std::string sStatus = ExpectedStatus(nCurrent_);
    CheckEqual(sStatus, item->Status(), "the status follows the record");
    Check(item->Updated() == (sStatus != statuses_[nCurrent_ - 1]), "a change is noticed");
    statuses_[nCurrent_ - 1] = sStatus;
  }

  void Setup() {
    if (nCurrent_ == 0) return;
    const std::size_t nRequired = products_[nCurrent_ - 1].nRequired;
    const auto& [sRevision, sFile] = records_.at(nRequired);
    const bool bMet = nRequired == 0 || (LogOpens() && sFile == "C:\\there" &&
                                         sRevision.find("2.0") != std::string::npos);
    Check(list_.ActiveItem()->CheckDependencies() == bMet, "a prerequisite is met or not");
    Check(bMet == list_.LastError().empty(), "a prerequisite that is not met has a reason");
    Check(list_.LastError().empty(), "reading an error consumes it");
  }

  void CheckRows() const {
    const auto nCount = static_cast<std::int16_t>(products_.size());
    const std::int16_t nRows = nCount < 4 ? nCount : std::int16_t{4};
    Check(model_.nVisibleRows() == nRows, "there is a row for each product, four at most");
    Check(model_.CanScroll() == (nCount > 4), "more products than rows can be scrolled");
    Check(model_.MaxTopIndex() == nCount - nRows + 1, "the last page is full");
    Check(model_.FirstItem() == nTop_ && nTop_ >= 1 && nTop_ <= model_.MaxTopIndex(),
          "the top row shows a product of the range");
    Check(model_.LastItem() == nTop_ + nRows - 1 && model_.LastItem() <= nCount,
          "the rows show one product after the other");
  }

  void CheckView() {
    CheckRows();
    Check(static_cast<std::size_t>(list_.CurrentIndex()) == nCurrent_,
          "the selection is the product that was pressed last");
    Check(model_.SetupEnabled() == (nCurrent_ != 0), "Setup needs a selection");
    Check(model_.ReadMeEnabled() == (nCurrent_ != 0 && products_[nCurrent_ - 1].bReadMe),
          "Read Me needs a read-me program");
    Check(model_.bIconCaptured() == bCaptured_, "an icon has the pointer until the release");
    Check(model_.bIconPressed() == bPressed_ && (bCaptured_ || !bPressed_),
          "an icon is pressed while the pointer is inside");
  }

  Input& input_;
  std::vector<Product> products_;
  FakePlatform& platform_ = CleanPlatform();
  SetupList list_;
  ListModel model_{list_};

  std::vector<std::string> statuses_;
  std::int16_t nTop_ = 1;
  std::size_t nCurrent_ = 0;
  bool bCaptured_ = false;
  bool bPressed_ = false;
  bool bRefused_ = false;
  bool bRecorded_ = false;
  std::array<std::pair<std::string, std::string>, 10> records_;  // revision and check file
};

}  // namespace

void Try(std::string_view sInput) {
  Input input(sInput);
  Session(input).Run();
}

}  // namespace trelin
