// The main menu: opening it on many pictures, a scroll step, a selection and a
// tick. The screen is one in memory, so that nothing but the program is timed.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "app/main_menu.h"
#include "bench/bench_platform.h"
#include "bench/made_suite.h"
#include "systems/host/host_path.h"
#include "systems/host/toolkit_setup.h"

namespace trelin {

namespace {

constexpr std::int32_t FewProducts = 7;
constexpr std::int32_t MostProducts = 32767;
constexpr std::int32_t ManyPictures = 5000;

std::string PictureName(std::int32_t n) {
  return MadeCheckFile(n).replace(MadeCheckFile(n).size() - 3, 3, "bmp");
}

// 32 by 32 pixels in 24 bits, a different one each.
void WritePictures(const BenchFolder& folder, std::int32_t nPictures) {
  QImage image(32, 32, QImage::Format_RGB888);
  for (std::int32_t n = 1; n <= nPictures; ++n) {
    for (int y = 0; y < 32; ++y)
      for (int x = 0; x < 32; ++x) image.setPixelColor(x, y, QColor(n % 256, 8 * x, 8 * y));
    if (!image.save(QString::fromStdString(folder / PictureName(n))))
      throw std::runtime_error("a picture was not written");
  }
}

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

  // Opens the menu, calls use when it is shown and painted, and closes it.
  void OpenMenu(const std::function<void(frmMainMenu&)>& use) {
    frmMainMenu menu("");
    QTimer::singleShot(0, [&] {
      QApplication::processEvents();
      use(menu);
      menu.Unload();
    });
    menu.Initialize();
    menu.ShowModal();
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
  Suite& suite = SuiteOf(ManyPictures, ManyPictures);
  for (auto _ : state) suite.OpenMenu([](frmMainMenu&) {});
}
BENCHMARK(OpenPictures)->Name("menu/open_pictures/trelin");

void DecodePictures(benchmark::State& state) {
  const Suite& suite = SuiteOf(ManyPictures, ManyPictures);
  for (auto _ : state)
    for (std::int32_t n = 1; n <= ManyPictures; ++n) {
      const QImage image(QString::fromStdString(suite.platform.folder / PictureName(n)));
      if (image.isNull()) state.SkipWithError("a picture is missing");
    }
}
BENCHMARK(DecodePictures)->Name("menu/decode_pictures/qimage");

// Two steps, there and back, so that each round is alike.
void Scroll(benchmark::State& state) {
  SuiteOf(state.range(0), 0).OpenMenu([&](frmMainMenu& menu) {
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
  SuiteOf(state.range(0), 0).OpenMenu([&](frmMainMenu& menu) {
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
  SuiteOf(FewProducts, 0).OpenMenu([&](frmMainMenu& menu) {
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
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
