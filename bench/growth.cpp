// What the launcher's works need for a suite of some size, once in a process each.
//
//   bench_growth make PRODUCTS FOLDER   writes a suite with installers, pictures, check
//                                       files and records
//   bench_growth load|check|menu FOLDER
//
// load reads the list into the model, check checks each product of the loaded list
// again, menu does both and opens the menu. Prints the nanoseconds of the work and by how
// many bytes the process has grown.

#include <QApplication>
#include <chrono>
#include <filesystem>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench_platform.h"
#include "bench/made_suite.h"
#include "bench/memory.h"
#include "bench/opened_menu.h"
#include "suite/setup_list.h"
#include "systems/host/host_path.h"
#include "systems/host/toolkit_setup.h"

namespace trelin {

namespace {

using Clock = std::chrono::steady_clock;

void WriteProduct(const BenchFolder& folder, std::int32_t n) {
  const std::string sCheckFile = MadeCheckFile(n);
  const std::string sProduct = sCheckFile.substr(0, sCheckFile.rfind('.'));
  folder.Write(sCheckFile, "");
  std::filesystem::create_directory(folder / sProduct);
  for (const char* sProgram : {"setup.exe", "readme.exe"})
    folder.Write(sProduct + "/" + sProgram, "");
}

void MakeSuite(std::int32_t nProducts, const std::string& sFolder) {
  const BenchFolder folder{std::filesystem::path(sFolder)};
  std::filesystem::copy_file(TRELIN_BUILD_DIR "/ENU35000.DLL", folder / "ENU35000.DLL");
  folder.Write("TRELIN.CFG", MadeSetupList(nProducts));
  folder.Write("registry.reg", MadeRegistryFile(nProducts, ProgramPath(folder / "")));
  for (std::int32_t n = 1; n <= nProducts; ++n) WriteProduct(folder, n);
  WritePictures(folder, nProducts);
}

class Stopwatch {
 public:
  long long Nanoseconds() const {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - start_).count();
  }

 private:
  Clock::time_point start_ = Clock::now();
};

void Print(const Stopwatch& watch, const MemoryGrowth& growth) {
  std::cout << watch.Nanoseconds() << "\t" << static_cast<long long>(growth.Bytes()) << "\n";
}

void Load(const std::string& sList) {
  const MemoryGrowth growth;
  const Stopwatch watch;
  MenuItemCollection items;
  BlockParser objParser;
  objParser.OpenFile(sList, false);
  objParser.GetToken();
  ReadBlock(
      objParser, [](const auto&, const auto&) {}, [&] { items.AddFromFile(objParser); });
  Print(watch, growth);
}

void CheckAgain(const std::string& sList) {
  const MemoryGrowth growth;
  SetupList list;
  list.Initialize();
  list.LoadFromFile(sList);
  const Stopwatch watch;
  list.CheckInstallations();
  Print(watch, growth);
}

void Open(const std::string&) {
  const MemoryGrowth growth;
  const Stopwatch watch;
  OpenMenu([&](frmMainMenu&) { Print(watch, growth); });
}

struct Work {
  const char* sName;
  void (*run)(const std::string& sList);
};
constexpr Work Works[] = {{"load", Load}, {"check", CheckAgain}, {"menu", Open}};

void Run(const std::vector<std::string>& arguments) {
  if (arguments.size() == 3 && arguments[0] == "make")
    return MakeSuite(std::stoi(arguments[1]), arguments[2]);
  for (const Work& work : Works)
    if (arguments.size() == 2 && arguments[0] == work.sName) {
      const BenchPlatform platform{std::filesystem::path(arguments[1])};
      return work.run(ProgramPath(platform.folder / "TRELIN.CFG"));
    }
  throw std::invalid_argument("bench_growth make PRODUCTS FOLDER, or load, check or menu FOLDER");
}

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const auto application = trelin::MakeApplication(argc, argv);
  try {
    trelin::Run({argv + 1, argv + argc});
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
