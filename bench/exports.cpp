// What trelin-status does with the exported records of 10,000 workstations.
//
//   bench_exports [OPTIONS OF GOOGLE BENCHMARK]
//   bench_exports --make EXPORTS FOLDER     writes them, and the suite that they are of

#include "status/exports.h"

#include <benchmark/benchmark.h>
#include <glib.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "bench/bench_platform.h"
#include "bench/rounds.h"
#include "shared/memory_registry.h"
#include "shared/registry_file.h"
#include "status/read_only.h"
#include "status/suite_status.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

constexpr int Workstations = 10000;
constexpr int Products = 7;
constexpr int Values = 40;  // of each workstation

void Require(bool bHolds, const char* sWhat) {
  if (bHolds) return;
  std::cerr << "The benchmark is wrong: " << sWhat << "\n";
  std::abort();
}

std::string Code(int n) { return "PRODUCT" + std::to_string(n); }

std::string SetupListText() {
  std::string sText = "BLOCK SETUPLIST\n";
  for (int n = 0; n < Products; ++n)
    sText += "BLOCK APPLICATION\nPRODUCT = " + Code(n) + "\nPRODUCTCODE = " + Code(n) +
             "\nREVISION = 2.1\nEND\n";
  return sText + "END\n";
}

// The same values as the registry editor writes them, and as an INI file.
void WriteExports(const BenchFolder& folder, int nWorkstations) {
  std::string sRecords = std::string(RegistryFileHeader) +
                         "\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvanta\\InstallLog]\r\n";
  std::string sIni = "[InstallLog]\r\n";
  for (int n = 0; n < Values / 2; ++n) {
    const std::string sFile = "C:\\\\Program Files\\\\Suite\\\\" + Code(n) + ".exe";
    sRecords += "\"" + Code(n) + "\"=\"2.1\"\r\n\"" + Code(n) + "CheckFile\"=\"" + sFile + "\"\r\n";
    sIni += Code(n) + "=2.1\r\n" + Code(n) + "CheckFile=" + sFile + "\r\n";
  }
  for (int n = 0; n < nWorkstations; ++n) {
    folder.Write(std::to_string(n) + ".reg", sRecords);
    folder.Write(std::to_string(n) + ".ini", sIni);
  }
  folder.Write("TRELIN.CFG", SetupListText());
}

class Exports {
 public:
  Exports() { WriteExports(platform_.folder, Workstations); }
  std::string operator/(const std::string& sName) const { return platform_.folder / sName; }

 private:
  BenchPlatform platform_;
};

void LookAtExports(benchmark::State& state, const Exports& exports) {
  for (auto _ : state) {
    QuietSystem quiet(TheSystem(), true);
    SuiteStatus suite(ProgramPath(exports / "TRELIN.CFG"), "");
    std::string sBytes;
    for (int n = 0; n < Workstations; ++n) {
      MemoryRegistry exported(
          ReadExport(ProgramPath(exports / (std::to_string(n) + ".reg")), sBytes));
      ReadOnlyRegistry registry(exported, false);
      const PlatformScope scope({&registry, &TheStringLibraries(), &quiet});
      const Workstation workstation = suite.LookAt("PC");
      Require(workstation.products.back().state == ProductState::Installed, "it is not installed");
    }
  }
}

void ReadWithGlib(benchmark::State& state, const Exports& exports) {
  for (auto _ : state) {
    for (int n = 0; n < Workstations; ++n) {
      GKeyFile* const pFile = g_key_file_new();
      const std::string sFile = exports / (std::to_string(n) + ".ini");
      Require(g_key_file_load_from_file(pFile, sFile.c_str(), G_KEY_FILE_NONE, nullptr) != 0,
              "GKeyFile failed");
      g_key_file_free(pFile);
    }
  }
}

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  if (argc == 4 && std::string(argv[1]) == "--make") {
    trelin::WriteExports(trelin::BenchFolder(std::filesystem::path(argv[3])), std::stoi(argv[2]));
    return 0;
  }
  const trelin::Exports exports;
  const auto measure = [&exports](const char* sName, auto work) {
    benchmark::RegisterBenchmark(sName, [&exports, work](auto& state) { work(state, exports); });
  };
  measure("status/exports/trelin", trelin::LookAtExports);
  measure("status/exports/gkeyfile", trelin::ReadWithGlib);
  trelin::RunBenchmarks(argc, argv);
}
