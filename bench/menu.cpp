// The main menu: opening it on many pictures, a scroll step, a selection and a
// tick. The screen is one in memory, so that nothing but the program is timed.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <array>
#include <memory>
#include <string>
#include <utility>

#include "bench/bench_platform.h"
#include "bench/made_suite.h"
#include "bench/opened_menu.h"
#include "bench/rounds.h"
#include "systems/host/host_path.h"
#include "systems/host/toolkit_setup.h"

namespace trelin {

namespace {

constexpr std::int32_t FewProducts = 7;
constexpr std::int32_t MostProducts = 32767;
constexpr std::int32_t ManyPictures = 5000;

// A suite with as many products, a record and a check file of each of the
// first, and as many pictures.
class Suite {
 public:
  Suite(std::int32_t nProducts, std::int32_t nPictures) {
    platform.folder.Write("TRELIN.CFG", MadeSetupList(nProducts));
    platform.folder.Write(MadeCheckFile(1), "");
    platform.folder.Write("registry.reg", MadeRegistryFile(1, ProgramPath(platform.folder / "")));
    WritePictures(platform.folder, nPictures);
  }

  BenchPlatform platform;
};

// One at a time: the platform in use is its.
Suite& SuiteOf(std::int64_t nProducts, std::int64_t nPictures) {
  static std::pair<std::int64_t, std::int64_t> made;
  static std::unique_ptr<Suite> suite;
  if (!suite || made != std::pair(nProducts, nPictures)) {
    suite.reset();
    suite = std::make_unique<Suite>(static_cast<std::int32_t>(nProducts),
                                    static_cast<std::int32_t>(nPictures));
    made = {nProducts, nPictures};
  }
  return *suite;
}

void OpenPictures(benchmark::State& state) {
  SuiteOf(ManyPictures, ManyPictures);
  for (auto _ : state) OpenMenu([](frmMainMenu&) {});
}
BENCHMARK(OpenPictures)->Name("menu/open_pictures/trelin");

// What of it is no work on pictures: the list is read, and its products are checked.
void LoadList(benchmark::State& state) {
  const Suite& suite = SuiteOf(ManyPictures, ManyPictures);
  for (auto _ : state) {
    SetupList list;
    list.Initialize();
    list.LoadFromFile(ProgramPath(suite.platform.folder / "TRELIN.CFG"));
  }
}
BENCHMARK(LoadList)->Name("menu/load_list/trelin");

void DecodePictures(benchmark::State& state) {
  const Suite& suite = SuiteOf(ManyPictures, ManyPictures);
  for (auto _ : state)
    for (std::int32_t n = 1; n <= ManyPictures; ++n) {
      const QImage image(QString::fromStdString(suite.platform.folder / MadePictureName(n)));
      if (image.isNull()) state.SkipWithError("a picture is missing");
    }
}
BENCHMARK(DecodePictures)->Name("menu/decode_pictures/qimage");

// Two steps, there and back, so that each round is alike.
void Scroll(benchmark::State& state) {
  SuiteOf(state.range(0), 0);
  OpenMenu([&](frmMainMenu& menu) {
    for (auto _ : state)
      for (const std::int16_t nTop : std::array<std::int16_t, 2>{2, 1}) {
        menu.VScroll.SetValue(nTop);
        QApplication::processEvents();
      }
  });
  state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(Scroll)->Name("menu/scroll/trelin")->Arg(FewProducts)->Arg(MostProducts);

void Select(benchmark::State& state) {
  SuiteOf(state.range(0), 0);
  OpenMenu([&](frmMainMenu& menu) {
    for (auto _ : state)
      for (const std::int16_t nRow : std::array<std::int16_t, 2>{0, 1}) {
        menu.picListItem[nRow].OnClick();
        QApplication::processEvents();
      }
  });
  state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(Select)->Name("menu/select/trelin")->Arg(FewProducts)->Arg(MostProducts);

void Tick(benchmark::State& state) {
  SuiteOf(FewProducts, 0);
  OpenMenu([&](frmMainMenu& menu) {
    menu.picListItem[0].OnClick();
    for (auto _ : state) menu.Timer1.OnTimer();
  });
}
BENCHMARK(Tick)->Name("menu/tick/trelin");

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const auto application = trelin::MakeApplication(argc, argv);
  trelin::RunBenchmarks(argc, argv);
}
