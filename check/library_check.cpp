#include "check/library_check.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>

#include "check/ansi_code_pages.h"
#include "check/text_fit.h"
#include "seam/platform.h"
#include "shared/code_page.h"
#include "shared/pe_string_table.h"
#include "shared/read_file.h"
#include "suite/row_layout.h"
#include "texts/numbers.h"
#include "texts/paths.h"
#include "texts/text_number.h"

namespace trelin {

namespace {

constexpr Rule LibraryDamaged = {"library-damaged", "A string library does not load.",
                                 "The launcher does not load it and shows no text at all."};
constexpr Rule MissingText = {"missing-text", "A string library lacks a text.",
                              "The user reads that a text is missing in its place."};
constexpr Rule UnknownText = {"unknown-text",
                              "A string library has a text that the program never asks for.",
                              "It is in the library to no purpose; often its number is wrong."};
constexpr Rule Placeholders = {"placeholders",
                               "The placeholders of a text are not those of the program's own.",
                               "The launcher fills them with names and numbers. What is missing "
                               "there is not said, what is too much stays as it is."};
constexpr Rule TextTooLong = {"text-too-long", "A text has more than 1,023 characters.",
                              "The launcher reads 1,023 characters, and the rest is lost."};
constexpr Rule TextNotAnsi = {
    "text-not-ansi", "A text of a string library has characters that the ANSI code page lacks.",
    "They are shown right on computers only whose ANSI code page has them."};
constexpr Rule NoCodePage = {
    "no-code-page", "No ANSI code page has all characters of a text of a string library.",
    "The launcher has its texts in the computer's ANSI code page: on each one some of them are "
    "question marks."};
constexpr Rule AccessKey = {"access-key", "Buttons lack access keys or share one.",
                            "Who works without a mouse presses a button by its letter."};
constexpr Rule AlikeTexts = {"alike-texts", "Two installation states read the same.",
                             "The menu tells by the text that a state has changed."};

constexpr Rule Untranslated = {"untranslated",
                               "A text of a translated string library is still the program's own.",
                               "The user reads English in the middle of another language."};
constexpr Rule NoticeNumber = {"notice-number", "The number of lines of the notice is none.",
                               "The launcher reads it first of all and ends with an error."};

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

// How many lines the notice has, as the launcher takes it from its text. Throws as
// ParseInt16 does.
std::int16_t NoticeLines(const LibraryTexts& texts) {
  const auto count = texts.find(NoticeCount);
  return count != texts.end() ? ParseInt16(FromUtf16(count->second), "The number of notice lines")
                              : std::int16_t{0};
}

bool IsNoticeLine(std::uint16_t nNumber) {
  return nNumber > NoticeCount && nNumber <= NoticeCount + 50;
}

// The numbers that the program asks for, but for the lines of the notice.
std::set<std::uint16_t> NumbersAskedFor(const LibraryTexts& own) {
  std::set<std::uint16_t> numbers;
  for (const auto& [nNumber, sText] : own)
    if (!IsNoticeLine(nNumber)) numbers.insert(nNumber);
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
      : own_(own), texts_(texts), askedFor_(NumbersAskedFor(own)) {}

  Findings Run() {
    CheckNotice();
    CompareNumbers();
    for (const auto& [nNumber, sText] : texts_) {
      if (own_.count(nNumber) != 0) ComparePlaceholders(nNumber, sText);
      CheckText(nNumber, sText);
    }
    CheckStates();
    CheckAccessKeys();
    CheckTitle();
    CheckTranslated();
    return std::move(findings_);
  }

 private:
  void Add(const Rule& rule, Severity severity, std::uint16_t nNumber, const std::string& sMessage,
           const std::string& sHint = "") {
    findings_.push_back(
        {&rule, severity, {}, "Text " + std::to_string(nNumber) + " " + sMessage, sHint, nNumber});
  }

  // The launcher does not start when it cannot read how many lines there are.
  void CheckNotice() {
    try {
      AskForLines(NoticeLines(texts_));
    } catch (const std::logic_error& error) {
      AddNotice(error.what());
    } catch (const std::overflow_error& error) {
      AddNotice(error.what());
    }
  }

  void AddNotice(const std::string& sWhy) {
    for (const auto& [nNumber, sText] : texts_)
      if (IsNoticeLine(nNumber)) askedFor_.insert(nNumber);
    Add(NoticeNumber, Severity::Error, NoticeCount,
        "does not say how many lines the notice has, so that the launcher does not start.", sWhy);
  }

  void AskForLines(std::int32_t lLines) {
    for (std::int32_t l = 1; l <= std::min(lLines, LastNumber - NoticeCount); ++l)
      askedFor_.insert(static_cast<std::uint16_t>(NoticeCount + l));
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
    CheckCharacters(nNumber, sText);
  }

  void CheckCharacters(std::uint16_t nNumber, const std::u16string& sText) {
    const auto foreign = std::find_if(sText.begin(), sText.end(), [](char16_t c) {
      return c != u'?' && FromUtf16(std::u16string(1, c)) == "?";
    });
    if (foreign == sText.end()) return;
    const std::string sWhich = std::to_string(foreign - sText.begin() + 1);
    const auto pages = CodePagesOf(sText);
    if (pages && pages->empty())
      return Add(NoCodePage, Severity::Error, nNumber,
                 "has characters that no ANSI code page has together; Windows-1252 lacks its " +
                     sWhich + ".",
                 "Write it in the letters of one script that has a code page.");
    std::string sPages;
    for (const int nPage : pages.value_or(std::vector<int>()))
      sPages += (sPages.empty() ? ": " : ", ") + std::to_string(nPage);
    Add(TextNotAnsi, Severity::Warning, nNumber,
        "has a character that Windows-1252 lacks, its " + sWhich + ".",
        "It is shown on computers only whose ANSI code page has it" + sPages + ".");
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

  // The system's own buttons and icon leave so much of the menu's width.
  void CheckTitle() {
    constexpr auto nNumber = static_cast<std::uint16_t>(TextNumber::MenuCaption);
    constexpr LabelPlace TitleBar = {0, 0, 7200, 240, {.bBold = true}};
    if (const auto text = texts_.find(nNumber); text != texts_.end())
      CheckFits(nNumber, text->second, TitleBar);
  }

  bool IsOwn(std::uint16_t nNumber, const std::u16string& sText) const {
    const auto own = own_.find(nNumber);
    return own != own_.end() && own->second == sText;
  }

  // A library is a translation when most of its texts are others.
  void CheckTranslated() {
    const auto isOwn = [this](const auto& text) { return IsOwn(text.first, text.second); };
    const auto nOwn = std::count_if(texts_.begin(), texts_.end(), isOwn);
    if (2 * static_cast<std::size_t>(nOwn) >= texts_.size()) return;
    for (const auto& [nNumber, sText] : texts_)
      if (IsOwn(nNumber, sText) && nNumber != NoticeCount)
        Add(Untranslated, Severity::Warning, nNumber, "is still the program's own.",
            "It reads: " + FromUtf16(sText));
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
    if (const std::int32_t lLines = LinesCutOff(sShown, place); lLines > 0)
      Add(rule::LongText, Severity::Warning, nNumber,
          "does not fit into its place in the menu" + CutOff(lLines), "Shorten it.");
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
  static constexpr std::array Table = {&LibraryDamaged, &MissingText,  &UnknownText, &Placeholders,
                                       &TextTooLong,    &TextNotAnsi,  &NoCodePage,  &AccessKey,
                                       &AlikeTexts,     &NoticeNumber, &Untranslated};
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
