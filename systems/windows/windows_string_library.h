#pragma once

#include "shared/string_tables.h"

namespace trelin {

class WindowsStringLibraryLoader : public StringTables {
 private:
  std::unique_ptr<InputFile> Open(const std::string& sPath) override;
  std::string ToCodePage(const std::u16string& sText) override;
};

}  // namespace trelin
