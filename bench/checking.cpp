// The installation checks of a suite, against a registry file with a record of
// each product, whose check files are there.
//
//   bench_checking [OPTIONS OF GOOGLE BENCHMARK]
//   bench_checking --once PRODUCTS ROUNDS     checks them so many times, to be counted

#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "bench/bench_platform.h"
#include "bench/made_suite.h"
#include "bench/rounds.h"
#include "shared/registry_file.h"
#include "suite/setup_list.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

constexpr std::int32_t MostProducts = 32767;

// A registry file that has just been written is read again at each check: its date might
// not tell the next change.
constexpr std::chrono::milliseconds UntilSettled{100};

// The suite, loaded and checked once.
class Suite {
 public:
  explicit Suite(std::int32_t nProducts) : nProducts_(nProducts) {
    for (std::int32_t n = 1; n <= nProducts; ++n) platform_.folder.Write(MadeCheckFile(n), "");
    WriteRegistry("");
    std::this_thread::sleep_for(UntilSettled);
    platform_.folder.Write("TRELIN.CFG", MadeSetupList(nProducts));
    list_.Initialize();
    list_.LoadFromFile(ProgramPath(platform_.folder / "TRELIN.CFG"));
  }

  void Check() { list_.CheckInstallations(); }

  // A registry file that differs by a comment.
  void WriteRegistry(const std::string& sComment) {
    platform_.folder.Write("registry.reg", RegistryText() + ";" + sComment + "\n");
  }

  std::string RegistryText() const {
    return MadeRegistryFile(nProducts_, ProgramPath(platform_.folder / ""));
  }

  std::string RegistryFile() const { return platform_.folder / "registry.reg"; }

  std::vector<std::string> CheckFiles() const {
    std::vector<std::string> files;
    for (std::int32_t n = 1; n <= nProducts_; ++n)
      files.push_back(platform_.folder / MadeCheckFile(n));
    return files;
  }

  std::int32_t Products() const { return nProducts_; }
  std::size_t Parses() const { return platform_.registry.Parses(); }

 private:
  std::int32_t nProducts_;
  BenchPlatform platform_;
  SetupList list_;
};

// One at a time: the platform in use is its.
Suite& SuiteOf(std::int64_t nProducts) {
  static std::unique_ptr<Suite> suite;
  if (!suite || suite->Products() != nProducts) {
    suite.reset();
    suite = std::make_unique<Suite>(static_cast<std::int32_t>(nProducts));
  }
  return *suite;
}

void Unchanged(benchmark::State& state) {
  Suite& suite = SuiteOf(state.range(0));
  for (auto _ : state) suite.Check();
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Unchanged)->Name("check/unchanged/trelin")->Arg(1000)->Arg(MostProducts);

// The system calls that such a check makes, and nothing else.
void SystemCalls(benchmark::State& state) {
  const std::vector<std::string> files = SuiteOf(state.range(0)).CheckFiles();
  const std::string sRegistry = SuiteOf(state.range(0)).RegistryFile();
  struct stat status {};
  for (auto _ : state)
    for (const std::string& sFile : files)
      for (const std::string* const pName : {&sRegistry, &sRegistry, &sFile})
        if (stat(pName->c_str(), &status) != 0) state.SkipWithError("a file is missing");
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SystemCalls)->Name("check/system_calls/bare")->Arg(1000)->Arg(MostProducts);

// Each round finds the file changed.
void Changed(benchmark::State& state) {
  Suite& suite = SuiteOf(state.range(0));
  std::size_t nParses = 0;
  for (auto _ : state) {
    state.PauseTiming();
    suite.WriteRegistry(std::to_string(nParses));
    const std::size_t nBefore = suite.Parses();
    state.ResumeTiming();
    suite.Check();
    nParses += suite.Parses() - nBefore;
  }
  state.counters["parses"] =
      benchmark::Counter(static_cast<double>(nParses), benchmark::Counter::kAvgIterations);
}
BENCHMARK(Changed)->Name("check/changed/trelin")->Arg(1000)->Arg(MostProducts);

void Parse(benchmark::State& state) {
  const std::string sText = SuiteOf(state.range(0)).RegistryText();
  for (auto _ : state) benchmark::DoNotOptimize(ReadRegistryText(sText, "registry.reg"));
}
BENCHMARK(Parse)->Name("check/parse/trelin")->Arg(1000)->Arg(MostProducts);

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv, argv + argc);
  if (argc == 4 && arguments[1] == "--once") {
    for (int nRound = std::stoi(arguments[3]); nRound > 0; --nRound)
      trelin::SuiteOf(std::stoi(arguments[2])).Check();
    return 0;
  }
  trelin::RunBenchmarks(argc, argv);
}
