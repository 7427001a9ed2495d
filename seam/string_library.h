#pragma once

#include <cstdint>
#include <string>

namespace trelin {

// A loaded string library; 0 is none.
using LibraryHandle = std::int32_t;

// String libraries are Windows libraries of which only the string table is
// used; nothing in them is ever run. Failures are results: the operations throw
// nothing but std::bad_alloc.
class StringLibraryLoader {
 public:
  virtual ~StringLibraryLoader() = default;

  // Loads the library at the full path sPath. The caller owns the handle and
  // gives it back to Free. Returns 0 when there is no such file or it is no
  // library, or a damaged one.
  virtual LibraryHandle Load(const std::string& sPath) = 0;

  // The handle stands for nothing from then on. 0 is ignored.
  virtual void Free(LibraryHandle hLibrary) = 0;

  // Copies the text of the string number lId, converted to the ANSI code page
  // and cut to lSize - 1 characters, into a buffer of lSize bytes and ends it
  // with a NUL. Returns the number of characters copied; 0 when the string
  // does not exist or is empty, and for a handle that stands for no library.
  virtual std::int32_t LoadText(LibraryHandle hLibrary, std::int32_t lId, char* pBuffer,
                                std::int32_t lSize) = 0;
};

}  // namespace trelin
