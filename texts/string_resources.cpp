#include "texts/string_resources.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "seam/platform.h"
#include "texts/installation_library.h"
#include "texts/message_template.h"
#include "texts/numbers.h"
#include "texts/paths.h"

namespace trelin {

namespace {

constexpr const char* LibraryMissingText = "Error: Resource File Not Found";
constexpr const char* TemplateMissingText = "Error: String Not Found";

constexpr std::array<std::pair<std::int32_t, const char*>, 30> LanguageCodes = {{
    {-1, "PIG"},   {1028, "CHT"}, {1030, "DAN"}, {1031, "DEU"}, {1033, "ENU"}, {1034, "ESP"},
    {1036, "FRA"}, {1040, "ITA"}, {1041, "JPN"}, {1042, "KOR"}, {1043, "NLD"}, {1044, "NOR"},
    {1046, "PTB"}, {1053, "SVE"}, {2055, "DES"}, {2057, "ENG"}, {2058, "ESM"}, {2060, "FRB"},
    {2064, "ITS"}, {2067, "NLB"}, {2068, "NON"}, {2070, "PTG"}, {3079, "DEA"}, {3081, "ENA"},
    {3082, "ESN"}, {3084, "FRC"}, {4105, "ENC"}, {4108, "FRS"}, {5129, "ENZ"}, {6153, "ENI"},
}};

std::string LanguageCode;
bool bEnabled = false;
std::vector<ResourceLibrary> Libraries;

// The block base with at least five digits: 0 gives "00000".
std::string FiveDigits(std::int32_t lBase) {
  std::string sDigits = std::to_string(lBase < 0 ? -static_cast<std::int64_t>(lBase) : lBase);
  if (sDigits.size() < 5) sDigits.insert(0, 5 - sDigits.size(), '0');
  if (lBase < 0) sDigits.insert(0, 1, '-');
  return sDigits;
}

std::string LibraryFileName(std::int32_t lId) {
  return LanguageCode + FiveDigits(ResourceBlockBase(lId)) + ".DLL";
}

LibraryHandle LoadLibraryFile(const std::string& sFileName) {
  const LibraryHandle hLibrary = TheStringLibraries().Load(ProgramFile(sFileName));
  return hLibrary != 0 ? hLibrary : LoadInstallationLibrary(sFileName);
}

}  // namespace

void ResetStringResources() {
  Libraries.clear();
  bEnabled = true;
}

bool InitStringResources(std::int32_t lLocaleId) {
  FreeResourceLibraries();
  LanguageCode = LanguageCodeFromLocale(lLocaleId);
  bEnabled = true;
  return true;
}

std::string LanguageCodeFromLocale(std::int32_t lLocaleId) {
  const auto* entry =
      std::find_if(LanguageCodes.begin(), LanguageCodes.end(),
                   [lLocaleId](const auto& code) { return code.first == lLocaleId; });
  return entry != LanguageCodes.end() ? entry->second : "ENU";
}

bool StringResourcesEnabled() { return bEnabled; }

std::int32_t ResourceBlockBase(std::int32_t lId) { return lId / 1000 * 1000; }

LibraryHandle GetResourceLibrary(std::int32_t lId) {
  if (!bEnabled) return 0;
  const std::string sFileName = LibraryFileName(lId);
  if (const LibraryHandle hCached = FindLoadedLibrary(sFileName); hCached != 0) return hCached;

  Libraries.reserve(Libraries.size() + 1);  // a loaded library must not get lost for lack of memory
  const LibraryHandle hLibrary = LoadLibraryFile(sFileName);
  if (hLibrary != 0) Libraries.push_back({hLibrary, sFileName});
  return hLibrary;
}

LibraryHandle FindLoadedLibrary(const std::string& sFileName) {
  const auto entry = std::find_if(
      Libraries.begin(), Libraries.end(),
      [&sFileName](const ResourceLibrary& library) { return library.FileName == sFileName; });
  return entry != Libraries.end() ? entry->Handle : 0;
}

void FreeResourceLibraries() {
  if (!bEnabled) return;
  for (const ResourceLibrary& library : Libraries) TheStringLibraries().Free(library.Handle);
  Libraries.clear();
}

const std::vector<ResourceLibrary>& LoadedLibraries() { return Libraries; }

std::int16_t LastLibraryIndex() {
  return ToInt16(static_cast<std::int64_t>(Libraries.size()) - 1, "The index of a string library");
}

std::string LoadResourceString(std::int32_t lId) {
  if (!bEnabled) return "";
  const LibraryHandle hLibrary = GetResourceLibrary(lId);
  if (hLibrary == 0) return LibraryMissingText;

  std::array<char, 1024> buffer;
  const std::int32_t lCount = TheStringLibraries().LoadText(
      hLibrary, lId, buffer.data(), static_cast<std::int32_t>(buffer.size()));
  if (lCount != 0) return {buffer.data(), static_cast<std::size_t>(lCount)};

  // The template itself is missing: it would be asked for without end.
  const std::int32_t lTemplate = ResourceBlockBase(lId);
  if (lId == lTemplate) return TemplateMissingText;
  return SubstituteArguments(LoadResourceString(lTemplate), {lId});
}

}  // namespace trelin
