#include "check/library_check.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>

#include "seam/platform.h"
#include "shared/code_page.h"
#include "shared/pe_string_table.h"
#include "shared/read_file.h"
#include "suite/row_layout.h"
#include "texts/paths.h"
#include "texts/text_number.h"

namespace trelin {

namespace {

constexpr Rule LibraryDamaged = {"library-damaged", "A string library does not load."};
constexpr Rule MissingText = {"missing-text", "A string library lacks a text."};
constexpr Rule UnknownText = {"unknown-text",
                              "A string library has a text that the program never asks for."};
constexpr Rule Placeholders = {"placeholders",
                               "The placeholders of a text are not those of the program's own."};
constexpr Rule TextTooLong = {"text-too-long", "A text has more than 1,023 characters."};
constexpr Rule TextNotAnsi = {
    "text-not-ansi", "A text of a string library has characters that the ANSI code page lacks."};
constexpr Rule AccessKey = {"access-key", "Buttons lack access keys or share one."};
constexpr Rule AlikeTexts = {"alike-texts", "Two installation states read the same."};

constexpr std::uint16_t FirstNumber = 35000;
constexpr std::uint16_t LastNumber = 35999;
constexpr auto NoticeCount = static_cast<std::uint16_t>(TextNumber::NoticeCount);
constexpr std::size_t LongestText = 1023;

LibraryTexts TextsOf(const PeStringTable& table) {
  LibraryTexts texts;
  for (std::uint16_t n = FirstNumber; n <= LastNumber; ++n)
    if (std::u16string sText = table.Text(n); !sText.empty()) texts.emplace(n, std::move(sText));
  return texts;
}

// A text that begins with a number, as the count of the notice lines does.
std::size_t LeadingNumber(const std::u16string& sText) {
  const std::string sDigits = FromUtf16(sText);
  std::size_t nNumber = 0;
  std::from_chars(sDigits.data(), sDigits.data() + sDigits.size(), nNumber);
  return std::min<std::size_t>(nNumber, LastNumber - NoticeCount);
}

bool IsNoticeLine(std::uint16_t nNumber) {
  return nNumber > NoticeCount && nNumber <= NoticeCount + 50;
}

// The numbers that the program asks for, given how many lines the notice has.
std::set<std::uint16_t> NumbersAskedFor(const LibraryTexts& own, const LibraryTexts& texts) {
  std::set<std::uint16_t> numbers;
  for (const auto& [nNumber, sText] : own)
    if (!IsNoticeLine(nNumber)) numbers.insert(nNumber);
  const auto count = texts.find(NoticeCount);
  const std::size_t nLines = count != texts.end() ? LeadingNumber(count->second) : 0;
  for (std::size_t n = 1; n <= nLines; ++n)
    numbers.insert(static_cast<std::uint16_t>(NoticeCount + n));
  return numbers;
}

std::set<char16_t> PlaceholdersOf(const std::u16string& sText) {
  std::set<char16_t> digits;
  for (std::size_t n = 0; n + 2 < sText.size(); ++n)
    if (sText[n] == u'%' && sText[n + 2] == u'%' && sText[n + 1] >= u'0' && sText[n + 1] <= u'9')
      digits.insert(sText[n + 1]);
  return digits;
}

std::string Listed(const std::set<char16_t>& digits) {
  std::string sList;
  for (const char16_t c : digits)
    sList += (sList.empty() ? "%" : ", %") + std::string(1, static_cast<char>(c)) + "%";
  return sList.empty() ? "none" : sList;
}

class LibraryComparison {
 public:
  LibraryComparison(const LibraryTexts& own, const LibraryTexts& texts)
      : own_(own), texts_(texts), askedFor_(NumbersAskedFor(own, texts)) {}

  Findings Run() {
    CompareNumbers();
    for (const auto& [nNumber, sText] : texts_) {
      if (own_.count(nNumber) != 0) ComparePlaceholders(nNumber, sText);
      CheckText(nNumber, sText);
    }
    CheckStates();
    CheckAccessKeys();
    return std::move(findings_);
  }

 private:
  void Add(const Rule& rule, Severity severity, std::uint16_t nNumber, const std::string& sMessage,
           const std::string& sHint = "") {
    findings_.push_back(
        {&rule, severity, {}, "Text " + std::to_string(nNumber) + " " + sMessage, sHint, nNumber});
  }

  void CompareNumbers() {
    for (const std::uint16_t nNumber : askedFor_)
      if (texts_.count(nNumber) == 0) AddMissing(nNumber);
    for (const auto& [nNumber, sText] : texts_)
      if (askedFor_.count(nNumber) == 0)
        Add(UnknownText, Severity::Warning, nNumber, "is never asked for.",
            "Remove it, or correct its number.");
  }

  void AddMissing(std::uint16_t nNumber) {
    const auto own = own_.find(nNumber);
    Add(MissingText, Severity::Error, nNumber, "is missing.",
        own == own_.end()
            ? "Text " + std::to_string(NoticeCount) + " says how many lines the notice has."
            : "In the program's own library it reads: " + FromUtf16(own->second));
  }

  void ComparePlaceholders(std::uint16_t nNumber, const std::u16string& sText) {
    const std::set<char16_t> own = PlaceholdersOf(own_.at(nNumber));
    const std::set<char16_t> found = PlaceholdersOf(sText);
    if (found == own) return;
    Add(Placeholders, Severity::Error, nNumber,
        "has the placeholders " + Listed(found) + " instead of " + Listed(own) + ".",
        "It reads: " + FromUtf16(sText));
  }

  void CheckText(std::uint16_t nNumber, const std::u16string& sText) {
    if (sText.size() > LongestText)
      Add(TextTooLong, Severity::Error, nNumber,
          "has " + std::to_string(sText.size()) + " characters. The launcher reads 1023.",
          "Shorten it.");
    const auto foreign = std::find_if(sText.begin(), sText.end(), [](char16_t c) {
      return c != u'?' && FromUtf16(std::u16string(1, c)) == "?";
    });
    if (foreign != sText.end())
      Add(TextNotAnsi, Severity::Warning, nNumber,
          "has a character that Windows-1252 lacks, its " +
              std::to_string(foreign - sText.begin() + 1) + ".",
          "It is shown on computers only whose ANSI code page has it.");
  }

  // The menu tells by the text that a state has changed.
  void CheckStates() {
    std::map<std::u16string, std::uint16_t> numbers;
    for (const TextNumber state : StateTexts) {
      const auto nNumber = static_cast<std::uint16_t>(state);
      const auto text = texts_.find(nNumber);
      if (text == texts_.end()) continue;
      const auto [first, bNew] = numbers.emplace(text->second, nNumber);
      if (!bNew)
        Add(AlikeTexts, Severity::Error, nNumber,
            "reads like text " + std::to_string(first->second) +
                ": the menu would not show the change from one to the other.",
            "Give each state of a product a text of its own.");
      CheckFits(nNumber, text->second, StatusPlace);
    }
  }

  void CheckAccessKeys() {
    std::map<std::string, std::uint16_t> numbers;
    for (const TextNumber button : ButtonTexts) {
      const auto nNumber = static_cast<std::uint16_t>(button);
      const auto text = texts_.find(nNumber);
      if (text == texts_.end()) continue;
      const std::string sKey = AccessKeyOf(text->second);
      const auto [first, bNew] = numbers.emplace(sKey, nNumber);
      if (sKey.empty())
        Add(AccessKey, Severity::Warning, nNumber, "has no access key.",
            "Put an ampersand in front of a letter.");
      else if (!bNew)
        Add(AccessKey, Severity::Warning, nNumber,
            "has the access key of text " + std::to_string(first->second) + ".",
            "Give each button a letter of its own.");
      constexpr LabelPlace OnButton = {0, 0, 1005, 345, {}};  // within its frame
      CheckFits(nNumber, text->second, OnButton);
    }
  }

  // In upper case; empty without one. Two ampersands are one to be shown.
  static std::string AccessKeyOf(const std::u16string& sText) {
    for (std::size_t n = 0; n + 1 < sText.size(); ++n) {
      if (sText[n] != u'&') continue;
      if (sText[++n] == u'&') continue;
      return UpperCase1252(FromUtf16(sText.substr(n, 1)));
    }
    return "";
  }

  void CheckFits(std::uint16_t nNumber, const std::u16string& sText, const LabelPlace& place) {
    std::string sShown = FromUtf16(sText);
    std::erase(sShown, '&');
    if (!LabelShowsWhole(sShown, place.font, place.width, place.height))
      Add(rule::LongText, Severity::Warning, nNumber,
          "does not fit into its place in the menu: its end is cut off.", "Shorten it.");
  }

  const LibraryTexts& own_;
  const LibraryTexts& texts_;
  std::set<std::uint16_t> askedFor_;
  Findings findings_;
};

// Nothing when the file is no library, or a damaged one.
std::optional<LibraryTexts> ReadTexts(const std::string& sPath) {
  const std::unique_ptr<InputFile> file = TheSystem().OpenInput(sPath);
  std::optional<std::string> sBytes = ReadWholeFile(*file);
  if (!sBytes) return std::nullopt;
  const std::optional<PeStringTable> table = PeStringTable::Parse(std::move(*sBytes));
  if (!table) return std::nullopt;
  return TextsOf(*table);
}

}  // namespace

std::span<const Rule* const> LibraryRules() {
  static constexpr std::array Table = {&LibraryDamaged, &MissingText, &UnknownText, &Placeholders,
                                       &TextTooLong,    &TextNotAnsi, &AccessKey,   &AlikeTexts};
  return Table;
}

Findings CompareLibraries(const LibraryTexts& own, const LibraryTexts& library) {
  return LibraryComparison(own, library).Run();
}

Findings CheckLibrary(const std::string& sPath) {
  const std::string sOwnPath = ProgramFile("ENU35000.DLL");
  const std::optional<LibraryTexts> own = ReadTexts(sOwnPath);
  if (!own) throw std::runtime_error("The string library \"" + sOwnPath + "\" is damaged.");
  const std::optional<LibraryTexts> library = ReadTexts(sPath);
  if (library) return CompareLibraries(*own, *library);
  return {{&LibraryDamaged,
           Severity::Error,
           {},
           "The file is no Windows library, or a damaged one: the launcher does not load it.",
           "Build it again."}};
}

}  // namespace trelin
