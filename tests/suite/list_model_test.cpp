#include "suite/list_model.h"

#include <array>
#include <stdexcept>
#include <tuple>

#include "testing/program_test.h"

namespace trelin {
namespace {

using Step = ListModel::Step;

class ListModelTest : public ProgramTest {
 protected:
  void Load(int nProducts) {
    std::string sText = "BLOCK SETUPLIST\n";
    for (int i = 1; i <= nProducts; ++i) sText += "BLOCK APPLICATION\nEND\n";
    system.files["C:\\list"] = sText;
    list.Initialize();
    list.LoadFromFile("C:\\list");
    model.Load();
  }

  SetupList list;
  ListModel model{list};
};

TEST_F(ListModelTest, RowsAndRangeFollowTheNumberOfProducts) {
  const std::tuple<int, int, bool, int> cases[] = {{0, 0, false, 1}, {1, 1, false, 1},
                                                   {4, 4, false, 1}, {5, 4, true, 2},
                                                   {7, 4, true, 4},  {32767, 4, true, 32764}};
  for (const auto& expected : cases) {
    const int nProducts = std::get<0>(expected);
    Load(nProducts);
    EXPECT_EQ(expected,
              std::tuple(nProducts, model.nVisibleRows(), model.CanScroll(), model.MaxTopIndex()));
  }
  model.ScrollTo(32764);
  EXPECT_EQ(model.LastItem(), 32767);
  for (const std::int16_t nRow : std::array<std::int16_t, 2>{0, 3}) {
    model.Select(nRow);
    EXPECT_EQ(list.CurrentIndex(), 32764 + nRow);
    EXPECT_EQ(model.SelectedRow(), nRow);
  }
  for (const std::int16_t nTop : std::array<std::int16_t, 3>{32763, 32760, 1}) {
    model.ScrollTo(nTop);
    EXPECT_EQ(model.SelectedRow(), std::nullopt) << nTop;
  }
  EXPECT_THROW(Load(32768), std::overflow_error);
}

TEST_F(ListModelTest, KeysMoveThroughTheListAndScrollIt) {
  // Top row and selection before and after.
  const struct {
    int nProducts;
    std::int16_t nTop, nCurrent;
    Step step;
    std::int16_t nNewTop, nNewCurrent;
  } cases[] = {
      {7, 3, 0, Step::Down, 3, 3},  // the list is entered
      {7, 3, 0, Step::PageUp, 3, 3},
      {7, 3, 0, Step::Home, 1, 1},
      {7, 3, 0, Step::End, 4, 7},
      {7, 2, 2, Step::Up, 1, 1},
      {7, 1, 4, Step::Down, 2, 5},
      {7, 1, 7, Step::Up, 3, 6},
      {7, 3, 5, Step::PageDown, 4, 7},
      {7, 2, 3, Step::PageUp, 1, 1},
      {2, 1, 2, Step::Down, 1, 2},
      {2, 1, 2, Step::PageUp, 1, 1},
      {32767, 32764, 32767, Step::PageDown, 32764, 32767},
      {32767, 1, 1, Step::End, 32764, 32767},
  };
  Load(0);
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "step " << static_cast<int>(c.step) << " from " << c.nCurrent
                                    << " of " << c.nProducts << ", top " << c.nTop);
    if (c.nProducts != list.MenuItems().Count()) Load(c.nProducts);
    model.ScrollTo(c.nTop);
    list.SetCurrentIndex(c.nCurrent);
    EXPECT_EQ(model.Go(c.step), c.nNewTop);
    EXPECT_EQ(list.CurrentIndex(), c.nNewCurrent);
  }
}

}  // namespace
}  // namespace trelin
