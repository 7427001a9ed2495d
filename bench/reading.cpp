// Reading a setup list of 32,767 products, beside what else reads such files.
//
//   bench_reading [OPTIONS OF GOOGLE BENCHMARK]
//   bench_reading --memory          prints how far reading makes the process grow
//   bench_reading --tokens FILE     reads the file once, to be counted
//   bench_reading --model FILE

#include <benchmark/benchmark.h>
#include <glib.h>
#include <ini.h>
#include <malloc.h>

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "bench/bench_platform.h"
#include "bench/made_suite.h"
#include "platform/host/host_path.h"
#include "setuplist/setup_list.h"

namespace trelin {

namespace {

constexpr std::int32_t Products = 32767;

void Require(bool bHolds, const char* sWhat) {
  if (bHolds) return;
  std::cerr << "The benchmark is wrong: " << sWhat << "\n";
  std::abort();
}

class Files {
 public:
  Files() {
    platform_.folder.Write("list.cfg", MadeSetupList(Products));
    platform_.folder.Write("list.ini", MadeIniFile(Products));
  }
  std::string List() const { return platform_.folder / "list.cfg"; }
  std::string Ini() const { return platform_.folder / "list.ini"; }

 private:
  BenchPlatform platform_;
};

const Files& TheFiles() {
  static const Files files;
  return files;
}

std::size_t CountTokens(const std::string& sHostPath) {
  BlockParser objParser;
  objParser.OpenFile(ProgramPath(sHostPath), false);
  std::size_t nTokens = 0;
  while (objParser.GetToken() != BlockParser::TokenEndFile()) ++nTokens;
  return nTokens;
}

// As the setup list does, but for the check of the installations.
void ReadModel(const std::string& sHostPath, MenuItemCollection& items) {
  BlockParser objParser;
  objParser.OpenFile(ProgramPath(sHostPath), false);
  objParser.GetToken();
  for (std::int16_t nToken = 0; (nToken = objParser.GetToken()) != BlockParser::TokenEndBlock();)
    if (nToken == BlockParser::TokenStartBlock()) items.AddFromFile(objParser);
}

// Releases what a round has read, so that the next one starts as a new process
// does: with no memory to use again.
template <class Release>
void EndRound(benchmark::State& state, Release release) {
  state.PauseTiming();
  release();
  malloc_trim(0);
  state.ResumeTiming();
}

void Lines(benchmark::State& state) {
  for (auto _ : state) {
    std::ifstream file(TheFiles().List());
    std::size_t nCharacters = 0;
    for (std::string sLine; std::getline(file, sLine);) nCharacters += sLine.size();
    Require(nCharacters > 16'000'000, "the lines are missing");
  }
}
BENCHMARK(Lines)->Name("read/lines/getline");

void Tokens(benchmark::State& state) {
  for (auto _ : state) Require(CountTokens(TheFiles().List()) > 400'000, "tokens are missing");
}
BENCHMARK(Tokens)->Name("read/tokens/trelin");

int CountEntry(void* pCount, const char*, const char*, const char*) {
  ++*static_cast<std::size_t*>(pCount);
  return 1;
}

void TokensOfInih(benchmark::State& state) {
  for (auto _ : state) {
    std::size_t nEntries = 0;
    Require(ini_parse(TheFiles().Ini().c_str(), CountEntry, &nEntries) == 0, "inih failed");
    Require(nEntries > 300'000, "entries are missing");
  }
}
BENCHMARK(TokensOfInih)->Name("read/tokens/inih");

void Model(benchmark::State& state) {
  for (auto _ : state) {
    MenuItemCollection items;
    ReadModel(TheFiles().List(), items);
    Require(items.Count() == Products, "products are missing");
    EndRound(state, [&] { items.Terminate(); });
  }
}
BENCHMARK(Model)->Name("read/model/trelin");

void ModelOfGlib(benchmark::State& state) {
  for (auto _ : state) {
    GKeyFile* pFile = g_key_file_new();
    const bool bRead =
        g_key_file_load_from_file(pFile, TheFiles().Ini().c_str(), G_KEY_FILE_NONE, nullptr);
    Require(bRead, "GKeyFile failed");
    EndRound(state, [&] { g_key_file_free(pFile); });
  }
}
BENCHMARK(ModelOfGlib)->Name("read/model/gkeyfile");

void ModelOfBoost(benchmark::State& state) {
  for (auto _ : state) {
    boost::property_tree::ptree tree;
    boost::property_tree::read_ini(TheFiles().Ini(), tree);
    Require(tree.size() > 60'000, "sections are missing");
    EndRound(state, [&] { tree.clear(); });
  }
}
BENCHMARK(ModelOfBoost)->Name("read/model/boost");

// A figure of /proc/self/status, in bytes.
double StatusBytes(const std::string& sName) {
  std::ifstream file("/proc/self/status");
  for (std::string sLine; std::getline(file, sLine);)
    if (sLine.starts_with(sName + ":")) return 1024 * std::stod(sLine.substr(sName.size() + 1));
  throw std::runtime_error(sName + " is not there");
}

std::size_t ValueBytes(MenuItemCollection& items) {
  std::size_t nBytes = 0;
  for (std::int32_t i = 1; i <= items.Count(); ++i) {
    const auto item = items.Item(i);
    for (const std::string* sValue : {&item->Title(), &item->Description(), &item->ImageFile(),
                                      &item->ReadMeFile(), &item->InstallFile()})
      nBytes += sValue->size();
  }
  return nBytes;
}

void PrintGrowth() {
  BenchPlatform platform;
  const std::string sList = platform.folder / "list.cfg";
  platform.folder.Write("list.cfg", MadeSetupList(Products));
  MenuItemCollection items;
  const double before = StatusBytes("VmRSS");
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak counts from here
  ReadModel(sList, items);
  std::cout << "memory/model/trelin\t" << StatusBytes("VmHWM") - before << "\n"
            << "memory/model/file\t" << std::filesystem::file_size(sList) << "\n"
            << "memory/model/values\t" << ValueBytes(items) << "\n";
}

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  const std::string sMode = argc > 1 ? argv[1] : "";
  if (sMode == "--memory") return trelin::PrintGrowth(), 0;
  if (sMode == "--tokens" || sMode == "--model") {
    trelin::BenchPlatform platform;
    trelin::MenuItemCollection items;
    if (sMode == "--tokens")
      trelin::CountTokens(argv[2]);
    else
      trelin::ReadModel(argv[2], items);
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
