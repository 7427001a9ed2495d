#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "seam/string_library.h"
#include "texts/text_number.h"

// Every text that the user sees has a string number and lies in a string
// library: blocks of 1000 numbers, one library file a block and language,
// named by the language code and the block's first number (ENU35000.DLL).
namespace trelin {

// One entry of the cache. The cache owns the handle until
// FreeResourceLibraries.
struct ResourceLibrary {
  LibraryHandle Handle = 0;
  std::string FileName;  // without its folder
};

// Empties the cache, freeing nothing, and enables lookups. To be called first.
void ResetStringResources();

// Frees the libraries, chooses the language of lLocaleId and enables lookups.
// Always true.
bool InitStringResources(std::int32_t lLocaleId);

// The three-letter code of a Windows locale identifier; "ENU" for one that is
// not listed.
std::string LanguageCodeFromLocale(std::int32_t lLocaleId);

bool StringResourcesEnabled();

// The first number of the block of lId: 35999 gives 35000.
std::int32_t ResourceBlockBase(std::int32_t lId);

// The library that holds lId, loaded on first use from the program's folder,
// else from the main measurement application's; 0 when there is none or
// lookups are disabled.
LibraryHandle GetResourceLibrary(std::int32_t lId);

// The cached library of that name, compared exactly; 0 when there is none.
LibraryHandle FindLoadedLibrary(const std::string& sFileName);

// Frees every cached library and empties the cache; nothing while lookups are
// disabled.
void FreeResourceLibraries();

// For whoever looks into the cache: it, in the order of loading, and the index of its
// last entry, -1 while it is empty.
const std::vector<ResourceLibrary>& LoadedLibraries();
std::int16_t LastLibraryIndex();

// The text of a string number, at most 1023 characters. Never throws for a
// missing library or string but returns a text that says so: for a string,
// the block's template (its first number) filled with lId. Empty while
// lookups are disabled. Throws PlatformError when the library has to be looked for
// in the registry and that cannot be used.
std::string LoadResourceString(std::int32_t lId);
inline std::string LoadResourceString(TextNumber number) {
  return LoadResourceString(static_cast<std::int32_t>(number));
}

}  // namespace trelin
