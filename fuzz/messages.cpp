// The first line of the input is a template, the others are its arguments; one
// that is "~" is absent.

#include "texts/messages.h"

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>

#include "fuzz/input.h"
#include "fuzz/platform.h"
#include "fuzz/target.h"
#include "texts/string_resources.h"

namespace trelin {

namespace {

// What ReplaceText says, character by character. Nothing for a giant text.
std::optional<std::string> Replaced(const std::string& sSource, const std::string& sFind,
                                    const std::string& sReplacement) {
  std::string sResult;
  for (std::size_t i = 0; i < sSource.size();) {
    const bool bHere = sSource.compare(i, sFind.size(), sFind) == 0;
    if (bHere)
      sResult += sReplacement;
    else
      sResult += sSource[i];
    i += bHere ? sFind.size() : 1;
    if (sResult.size() > LongestMessage) return std::nullopt;
  }
  return sResult;
}

void CheckReplacement(const std::string& sSource, const std::string& sFind,
                      const std::string& sReplacement) {
  const std::optional<std::string> sExpected = Replaced(sSource, sFind, sReplacement);
  try {
    const std::string sResult = ReplaceText(sSource, sFind, sReplacement);
    Check(sSource.size() <= 32767, "positions are 16-bit");
    Check(sExpected == sResult, "every place is replaced once");
  } catch (const std::overflow_error&) {
    Check(sSource.size() > 32767, "a short text does not overflow");
  } catch (const std::length_error&) {
    Check(!sExpected, "a text that is not giant comes out");
  }
}

std::string Filled(std::string sText, const ArgumentArray& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (!arguments[i].Text() || sText.size() > 32767) continue;
    const std::string sPlaceholder = "%" + std::string(1, static_cast<char>('0' + i)) + "%";
    sText = Replaced(sText, sPlaceholder, *arguments[i].Text()).value_or(sText);
  }
  return sText;
}

void CheckResources(const std::string& sTemplate, const ArgumentArray& arguments) {
  FakeLibraries::Texts& texts = CleanPlatform().libraries.Own();
  const std::string sMissing = texts[35000];
  texts[35008] = sTemplate;
  const std::string sShown = sTemplate.substr(0, 1023);
  if (!sShown.empty())
    CheckEqual(Filled(sShown, arguments), FormatResourceString(35008, arguments),
               "a string is filled as a template is");

  // A string that does not exist, then one whose template does not exist either.
  texts[35008].clear();
  CheckEqual("35000(35008)", LoadResourceString(35008), "a missing string is named");
  texts[35000].clear();
  CheckEqual("Error: String Not Found", LoadResourceString(35008),
             "and a missing template as well");
  texts[35000] = sMissing;
}

}  // namespace

void Try(std::string_view sInput) {
  Input input(sInput);
  const std::string sTemplate = input.Line();
  ArgumentArray arguments;
  for (Argument& argument : arguments) {
    if (input.Empty()) break;
    if (const std::string sLine = input.Line(); sLine != "~") argument = Argument(sLine);
  }
  CheckEqual(Filled(sTemplate, arguments), SubstituteArguments(sTemplate, arguments),
             "placeholders are filled in ascending order");
  CheckEqual(sTemplate, SubstituteArguments(sTemplate, {}), "no argument, no change");
  if (arguments[0].Text() && !arguments[0].Text()->empty())
    CheckReplacement(sTemplate, *arguments[0].Text(), arguments[1].Text().value_or(""));
  CheckResources(sTemplate, arguments);
}

}  // namespace trelin
