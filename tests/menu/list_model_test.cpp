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

}  // namespace
}  // namespace trelin
