#include "texts/suite_texts.h"

#include <cstdint>
#include <utility>

#include "seam/console.h"
#include "seam/platform.h"
#include "seam/platform_error.h"
#include "texts/paths.h"
#include "texts/string_resources.h"

namespace trelin {

// In the place of the system's, which it calls.
class SuiteTexts::Libraries : public StringLibraryLoader {
 public:
  explicit Libraries(std::string sFolder)
      : system_(TheStringLibraries()),
        sFolder_(std::move(sFolder)),
        scope_({&TheRegistry(), this, &TheSystem()}) {}

  LibraryHandle Load(const std::string& sPath) override {
    const LibraryHandle hOwn = system_.Load(InFolder(sFolder_, SuiteLibraryName));
    return hOwn != 0 ? hOwn : system_.Load(sPath);
  }
  void Free(LibraryHandle hLibrary) override { system_.Free(hLibrary); }
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override {
    return system_.LoadText(hLibrary, lId, pBuffer, lSize);
  }

 private:
  StringLibraryLoader& system_;
  std::string sFolder_;
  const PlatformScope scope_;
};

SuiteTexts::SuiteTexts(const std::string& sFolder, const std::string& sProgram)
    : libraries_(std::make_unique<Libraries>(sFolder)) {
  constexpr std::int32_t LocaleId = 1033;  // as the launcher
  ResetStringResources();
  InitStringResources(LocaleId);
  if (GetResourceLibrary(static_cast<std::int32_t>(TextNumber::Missing)) == 0)
    throw PlatformError("open the string library", WrittenByUser(ProgramFile(SuiteLibraryName)),
                        "it is missing or damaged; it belongs into the folder of " + sProgram);
}

SuiteTexts::~SuiteTexts() { FreeResourceLibraries(); }

}  // namespace trelin
