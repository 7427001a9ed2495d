#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "seam/string_library.h"

namespace trelin {

// The loaded libraries of a system by their handles. Library: what the system knows
// of a loaded one, which goes when it is freed.
template <class Library>
class LibraryTable {
 public:
  LibraryHandle Keep(Library library) {
    libraries_.emplace(++hLast_, std::move(library));
    return hLast_;
  }

  void Free(LibraryHandle hLibrary) { libraries_.erase(hLibrary); }

  // Puts the empty text into a buffer of lSize bytes and returns the library whose
  // text is to be copied there; null when the empty one is it.
  Library* Begin(LibraryHandle hLibrary, char* pBuffer, std::int32_t lSize) {
    if (lSize <= 0) return nullptr;
    pBuffer[0] = '\0';
    const auto library = libraries_.find(hLibrary);
    return library == libraries_.end() ? nullptr : &library->second;
  }

 private:
  LibraryHandle hLast_ = 0;  // no handle is given out twice
  std::map<LibraryHandle, Library> libraries_;
};

}  // namespace trelin
