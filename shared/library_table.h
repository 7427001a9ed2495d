#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "seam/string_library.h"

namespace trelin {

// The loaded libraries of a system by their handles. Library: what the system knows
// of a loaded one, which goes when it is freed.
template <class Library>
class LibraryTable : public StringLibraryLoader {
 public:
  void Free(LibraryHandle hLibrary) override { libraries_.erase(hLibrary); }

  // Of lId only the low 16 bits count, as on Windows.
  std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                        std::int32_t lSize) override {
    if (lSize <= 0) return 0;
    pBuffer[0] = '\0';
    const auto library = libraries_.find(hLibrary);
    if (library == libraries_.end()) return 0;
    return CopyText(library->second, static_cast<std::uint16_t>(lId), pBuffer, lSize);
  }

 protected:
  LibraryHandle Keep(Library library) {
    libraries_.emplace(++hLast_, std::move(library));
    return hLast_;
  }

  // LoadText of a loaded library, with room for one character at least.
  virtual std::int32_t CopyText(Library& library, std::uint16_t nId, char* pBuffer,
                                std::int32_t lSize) = 0;

 private:
  LibraryHandle hLast_ = 0;  // no handle is given out twice
  std::map<LibraryHandle, Library> libraries_;
};

}  // namespace trelin
