#include "app/notice_lines.h"

#include <cstdint>
#include <stdexcept>
#include <string>

#include "suite/reg_entry.h"
#include "texts/numbers.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// The text of line k has this number plus k.
constexpr auto LineCountString = static_cast<std::int32_t>(TextNumber::NoticeCount);

// This is the first text that the program asks for, so a missing library shows
// here: the message has to say so without one.
std::int16_t ReadLineCount() {
  try {
    return ParseInt16(LoadResourceString(LineCountString),
                      "The number of notice lines (string 35040)");
  } catch (const std::invalid_argument& error) {
    throw std::invalid_argument(
        std::string(
            "The string library ENU35000.DLL is missing from the folder of Trelin, or it is "
            "damaged.\n\nPlease copy it there again from the setup disk and start Trelin "
            "once more. ") +
        error.what());
  }
}

}  // namespace

bool WriteNoticeLines() {
  const std::int16_t nLines = ReadLineCount();
  RegEntry objReg;
  objReg.CreateKey("Copyright");
  objReg.SetString("NumLines", std::to_string(nLines));
  for (std::int32_t lLine = 1; lLine <= nLines; ++lLine)
    objReg.SetString("Line" + std::to_string(lLine), LoadResourceString(LineCountString + lLine));
  return true;
}

}  // namespace trelin
