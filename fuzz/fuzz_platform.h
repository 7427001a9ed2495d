#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>

#include "seam/platform.h"
#include "shared/memory_registry.h"

namespace trelin {

// The one string library, whose texts name their numbers and every argument:
// "35008(%0%|%1%|%2%|%3%)", unless texts holds another one. An empty text is a
// string that does not exist.
class FuzzLibraries : public StringLibraryLoader {
 public:
  LibraryHandle Load(const std::string& sPath) override;
  void Free(LibraryHandle hLibrary) override;
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override;

  std::map<std::int32_t, std::string> texts;
};

// A file that is read in pieces of up to nPiece bytes.
struct ServedFile {
  std::string sBytes;
  std::size_t nPiece = 65536;
};

// A system with one file to read, and a set of files that are there.
class FuzzSystem : public System {
 public:
  std::string ProgramFolder() override { return "C:\\Suite"; }
  std::string CommandLineText() override { return ""; }
  void MakeUpperCase(std::span<char> text) override;
  std::unique_ptr<InputFile> OpenInput(const std::string& sPath) override;
  std::unique_ptr<FileSearch> Search(const std::string& sPath) override;
  void Beep() override { ++nBeeps; }
  MessageAnswer ShowMessage(const std::string& sText, MessageIcon icon, MessageButtons buttons,
                            const std::string& sTitle) override;
  void StartProgram(const std::string& sCommandLine) override;

  ServedFile file;
  std::set<std::string> existing;
  int nOpenFiles = 0;
  int nBeeps = 0;
  std::string sShown;  // the messages, one after the other
};

// The platform in use from its construction on, with lookups enabled.
struct FuzzPlatform {
  FuzzPlatform();
  FuzzPlatform(const FuzzPlatform&) = delete;
  FuzzPlatform& operator=(const FuzzPlatform&) = delete;

  MemoryRegistry registry;
  FuzzLibraries libraries;
  FuzzSystem system;
};

}  // namespace trelin
