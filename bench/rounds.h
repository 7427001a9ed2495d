#pragma once

namespace trelin {

// Runs the benchmarks that the command line asks for.
//
//   PROGRAM [OPTIONS OF GOOGLE BENCHMARK]
//   PROGRAM --rounds=N [OPTIONS OF GOOGLE BENCHMARK]
//
// In rounds, each is run once in a round, so that what is compared is measured side by
// side, however fast the machine is just then; each round is reported as JSON.
void RunBenchmarks(int argc, char** argv);

}  // namespace trelin
