#include "bench/rounds.h"

#include <benchmark/benchmark.h>

#include <string>

namespace trelin {

void RunBenchmarks(int argc, char** argv) {
  const std::string sOption = "--rounds=";
  int nRounds = 0;
  if (argc > 1 && std::string(argv[1]).starts_with(sOption)) {
    nRounds = std::stoi(argv[1] + sOption.size());
    argv[1] = argv[0];
    --argc, ++argv;
  }
  benchmark::Initialize(&argc, argv);
  if (nRounds == 0) benchmark::RunSpecifiedBenchmarks();
  for (; nRounds > 0; --nRounds) {
    benchmark::JSONReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
  }
}

}  // namespace trelin
