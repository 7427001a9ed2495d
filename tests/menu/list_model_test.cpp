#include "menu/list_model.h"

#include <stdexcept>

#include "tests/fake_platform.h"

namespace trelin {
namespace {

class ListModelTest : public ProgramTest {
 protected:
  // A list of nProducts products, of which every second has a read-me file.
  ListModel& Load(int nProducts) {
    std::string sText = "BLOCK SETUPLIST\n";
    for (int i = 1; i <= nProducts; ++i)
      sText += i % 2 == 0 ? "BLOCK APPLICATION\nREADMEFILE=x\nEND\n" : "BLOCK APPLICATION\nEND\n";
    system.files["C:\\list"] = sText;
    list.Initialize();
    list.LoadFromFile("C:\\list");
    return model.emplace(list);
  }

  SetupList list;
  std::optional<ListModel> model;
};

TEST_F(ListModelTest, RowsAndRangeFollowTheNumberOfProducts) {
  const struct {
    int nProducts;
    std::int16_t nRows;
    bool bScroll;
    std::int16_t nMaxTop;
  } cases[] = {{0, 0, false, 1}, {1, 1, false, 1}, {4, 4, false, 1},
               {5, 4, true, 2},  {7, 4, true, 4},  {32767, 4, true, 32764}};
  for (const auto& c : cases) {
    Load(c.nProducts).Load();
    EXPECT_EQ(model->nVisibleRows(), c.nRows) << c.nProducts;
    EXPECT_EQ(model->CanScroll(), c.bScroll) << c.nProducts;
    EXPECT_EQ(model->MaxTopIndex(), c.nMaxTop) << c.nProducts;
    EXPECT_EQ(list.TopIndex(), 1) << c.nProducts;
    EXPECT_EQ(list.CurrentIndex(), 0) << c.nProducts;
    EXPECT_FALSE(model->SetupEnabled()) << c.nProducts;
  }
  model->ScrollTo(32764);
  model->Select(3);
  EXPECT_EQ(list.CurrentIndex(), 32767);
  EXPECT_EQ(model->LastItem(), 32767);
  EXPECT_THROW(Load(32768).Load(), std::overflow_error);
}

TEST_F(ListModelTest, TheSelectionStaysWhenTheListScrolls) {
  Load(7).Load();
  EXPECT_FALSE(model->ReadMeEnabled());
  model->ScrollTo(4);
  model->Select(2);
  EXPECT_EQ(list.CurrentIndex(), 6);
  EXPECT_TRUE(model->SetupEnabled());
  EXPECT_TRUE(model->ReadMeEnabled());
  model->ScrollTo(1);
  EXPECT_EQ(list.CurrentIndex(), 6);
  EXPECT_EQ(model->FirstItem(), 1);
  EXPECT_EQ(model->LastItem(), 4);
  model->Select(2);
  EXPECT_FALSE(model->ReadMeEnabled()) << "product 3 has no read-me file";
}

TEST_F(ListModelTest, AnIconIsPressedWhileThePointerIsInside) {
  Load(4).Load();
  EXPECT_FALSE(model->MovePointer(true)) << "idle";
  EXPECT_FALSE(model->ReleaseIcon(true).bRunSetup) << "idle";

  model->PressIcon(1);
  EXPECT_EQ(list.CurrentIndex(), 2) << "a press selects";
  EXPECT_TRUE(model->bIconPressed());
  EXPECT_FALSE(model->MovePointer(true)) << "no change, no repaint";
  EXPECT_TRUE(model->MovePointer(false));
  EXPECT_TRUE(model->bIconCaptured());
  EXPECT_FALSE(model->bIconPressed());
  const auto slidOff = model->ReleaseIcon(false);
  EXPECT_FALSE(slidOff.bRepaint);
  EXPECT_FALSE(slidOff.bRunSetup);

  model->PressIcon(1);
  model->MovePointer(false);
  EXPECT_TRUE(model->MovePointer(true)) << "sliding back presses again";
  const auto completed = model->ReleaseIcon(true);
  EXPECT_TRUE(completed.bRepaint);
  EXPECT_TRUE(completed.bRunSetup);
  EXPECT_FALSE(model->bIconCaptured());
}

}  // namespace
}  // namespace trelin
