#include "menu/list_model.h"

#include <stdexcept>

#include "tests/fake_platform.h"

namespace trelin {
namespace {

class ListModelTest : public ProgramTest {
 protected:
  ListModel& Load(int nProducts) {
    std::string sText = "BLOCK SETUPLIST\n";
    for (int i = 1; i <= nProducts; ++i) sText += "BLOCK APPLICATION\nEND\n";
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
  }
  model->ScrollTo(32764);
  model->Select(3);
  EXPECT_EQ(list.CurrentIndex(), 32767);
  EXPECT_EQ(model->LastItem(), 32767);
  EXPECT_THROW(Load(32768).Load(), std::overflow_error);
}

TEST_F(ListModelTest, KeysMoveThroughTheListAndScrollIt) {
  using Step = ListModel::Step;
  const struct {
    int nProducts;
    std::int16_t nTop;
    std::optional<std::int16_t> nRow;
    Step step;
    std::optional<ListModel::Place> place;
  } cases[] = {
      {0, 1, std::nullopt, Step::Down, std::nullopt},
      {0, 1, std::nullopt, Step::End, std::nullopt},
      {7, 3, std::nullopt, Step::Down, {{3, 0}}},
      {7, 3, std::nullopt, Step::PageUp, {{3, 0}}},
      {7, 3, std::nullopt, Step::Home, {{1, 0}}},
      {7, 3, std::nullopt, Step::End, {{4, 3}}},
      {7, 1, 1, Step::Up, {{1, 0}}},
      {7, 1, 0, Step::Up, {{1, 0}}},
      {7, 2, 0, Step::Up, {{1, 0}}},
      {7, 1, 3, Step::Down, {{2, 3}}},
      {7, 4, 3, Step::Down, {{4, 3}}},
      {7, 1, 0, Step::PageDown, {{2, 3}}},
      {7, 3, 2, Step::PageDown, {{4, 3}}},
      {7, 4, 3, Step::PageUp, {{3, 0}}},
      {7, 2, 1, Step::PageUp, {{1, 0}}},
      {7, 1, 0, Step::End, {{4, 3}}},
      {7, 4, 3, Step::Home, {{1, 0}}},
      {2, 1, 1, Step::Down, {{1, 1}}},
      {2, 1, 1, Step::PageUp, {{1, 0}}},
      {32767, 32764, 3, Step::PageDown, {{32764, 3}}},
      {32767, 1, 0, Step::End, {{32764, 3}}},
  };
  for (const auto& c : cases) {
    if (!model || c.nProducts != list.MenuItems().Count()) Load(c.nProducts).Load();
    model->ScrollTo(c.nTop);
    EXPECT_EQ(model->Go(c.step, c.nRow), c.place)
        << "case " << &c - cases << ": step " << static_cast<int>(c.step);
  }
}

}  // namespace
}  // namespace trelin
