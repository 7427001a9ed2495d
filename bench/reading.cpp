// Reading a setup list of 32,767 products, beside what else reads such files.
//
//   bench_reading [OPTIONS OF GOOGLE BENCHMARK]
//   bench_reading --memory             how far reading makes the process grow
//   bench_reading --make PRODUCTS FILE.cfg FILE.ini
//   bench_reading --once WORK FILE     does a work once, to be counted

#include <benchmark/benchmark.h>
#include <glib.h>
#include <ini.h>
#include <malloc.h>

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "bench/bench_platform.h"
#include "bench/made_suite.h"
#include "bench/memory.h"
#include "bench/rounds.h"
#include "suite/setup_list.h"
#include "systems/host/host_path.h"

namespace trelin {

namespace {

constexpr std::int32_t Products = 32767;

void Require(bool bHolds, const char* sWhat) {
  if (bHolds) return;
  std::cerr << "The benchmark is wrong: " << sWhat << "\n";
  std::abort();
}

// What a work has read, until it is released.
using Held = std::shared_ptr<void>;

Held ReadLines(const std::string& sFile) {
  std::ifstream file(sFile);
  std::size_t nCharacters = 0;
  for (std::string sLine; std::getline(file, sLine);) nCharacters += sLine.size();
  Require(nCharacters > 0, "the lines are missing");
  return nullptr;
}

Held ReadTokens(const std::string& sFile) {
  BlockParser objParser;
  objParser.OpenFile(ProgramPath(sFile), false);
  std::size_t nTokens = 0;
  while (objParser.GetToken() != BlockParser::TokenEndFile()) ++nTokens;
  Require(nTokens > 0, "tokens are missing");
  return nullptr;
}

int CountEntry(void* pCount, const char*, const char*, const char*) {
  ++*static_cast<std::size_t*>(pCount);
  return 1;
}

Held ReadTokensOfInih(const std::string& sFile) {
  std::size_t nEntries = 0;
  Require(ini_parse(sFile.c_str(), CountEntry, &nEntries) == 0, "inih failed");
  Require(nEntries > 0, "entries are missing");
  return nullptr;
}

// As the setup list does, but for the check of the installations.
Held ReadModel(const std::string& sFile) {
  auto items = std::make_shared<MenuItemCollection>();
  BlockParser objParser;
  objParser.OpenFile(ProgramPath(sFile), false);
  objParser.GetToken();
  ReadBlock(
      objParser, [](const auto&, const auto&) {}, [&] { items->AddFromFile(objParser); });
  Require(items->Count() > 0, "products are missing");
  return items;
}

Held ReadModelOfGlib(const std::string& sFile) {
  Held file(g_key_file_new(), [](void* p) { g_key_file_free(static_cast<GKeyFile*>(p)); });
  Require(g_key_file_load_from_file(static_cast<GKeyFile*>(file.get()), sFile.c_str(),
                                    G_KEY_FILE_NONE, nullptr),
          "GKeyFile failed");
  return file;
}

Held ReadModelOfBoost(const std::string& sFile) {
  auto tree = std::make_shared<boost::property_tree::ptree>();
  boost::property_tree::read_ini(sFile, *tree);
  Require(!tree->empty(), "sections are missing");
  return tree;
}

struct Work {
  const char* sName;
  bool bIni;  // reads the list as an INI file
  Held (*read)(const std::string& sFile);
};

constexpr Work Works[] = {
    {"read/lines/getline", false, ReadLines},       {"read/tokens/trelin", false, ReadTokens},
    {"read/tokens/inih", true, ReadTokensOfInih},   {"read/model/trelin", false, ReadModel},
    {"read/model/gkeyfile", true, ReadModelOfGlib}, {"read/model/boost", true, ReadModelOfBoost},
};

void WriteFile(const std::string& sFile, const std::string& sText) {
  std::ofstream file(sFile, std::ios::binary);
  Require(static_cast<bool>(file << sText), "a file was not written");
}

// What a round has read is released between the rounds, and its memory given
// back: each begins as a new process does.
void Measure(benchmark::State& state, const Work& work, const std::string& sFile) {
  for (auto _ : state) {
    Held held = work.read(sFile);
    if (!held) continue;
    state.PauseTiming();
    held.reset();
    malloc_trim(0);
    state.ResumeTiming();
  }
}

void MeasureAll(int argc, char** argv) {
  const BenchPlatform platform;
  const std::string sList = platform.folder / "list.cfg";
  const std::string sIni = platform.folder / "list.ini";
  WriteFile(sList, MadeSetupList(Products));
  WriteFile(sIni, MadeIniFile(Products));
  for (const Work& work : Works)
    benchmark::RegisterBenchmark(work.sName, Measure, work, work.bIni ? sIni : sList);
  RunBenchmarks(argc, argv);
}

void DoOnce(const std::string& sName, const std::string& sFile) {
  const BenchPlatform platform;
  for (const Work& work : Works)
    if (work.sName == sName) {
      [[maybe_unused]] static const auto* const pHeld = new Held(work.read(sFile));
      return;  // releasing is no part of it
    }
  Require(false, "there is no such work");
}

void PrintGrowth() {
  const BenchPlatform platform;
  const std::string sList = platform.folder / "list.cfg";
  WriteFile(sList, MadeSetupList(Products));
  const MemoryGrowth growth;
  const Held held = ReadModel(sList);
  std::cout << "memory/model/trelin\t" << growth.Bytes() << "\n"
            << "memory/model/file\t" << std::filesystem::file_size(sList) << "\n"
            << "memory/model/values\t" << MadeValueBytes(Products) << "\n";
}

}  // namespace

}  // namespace trelin

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv, argv + argc);
  const std::string sMode = argc > 1 ? arguments[1] : "";
  if (sMode == "--memory") {
    trelin::PrintGrowth();
  } else if (sMode == "--make" && argc == 5) {
    const auto nProducts = static_cast<std::int32_t>(std::stoi(arguments[2]));
    trelin::WriteFile(arguments[3], trelin::MadeSetupList(nProducts));
    trelin::WriteFile(arguments[4], trelin::MadeIniFile(nProducts));
  } else if (sMode == "--once" && argc == 4) {
    trelin::DoOnce(arguments[2], arguments[3]);
  } else {
    trelin::MeasureAll(argc, argv);
  }
}
