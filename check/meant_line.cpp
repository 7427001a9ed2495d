#include "check/meant_line.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "check/checked_list.h"
#include "check/nearest.h"
#include "texts/text.h"

namespace trelin {

namespace {

// What is longer was not typed wrong.
constexpr std::size_t LongestTyped = 1000;

constexpr std::array Kinds = {BlockKind::SetupList, BlockKind::Application, BlockKind::Dependency};

bool IsKeyOfAnyBlock(std::string_view sWord) {
  return std::any_of(Kinds.begin(), Kinds.end(),
                     [sWord](BlockKind kind) { return IsKeyOf(kind, sWord); });
}

// The block type that a word is, but for a slip or two; a null pointer for none.
const char* BlockTypeMeant(std::string_view sWord) {
  const auto kind = std::find_if(Kinds.begin(), Kinds.end(), [sWord](BlockKind known) {
    return IsNear(sWord, NameOf(known), 2);
  });
  return kind != Kinds.end() ? NameOf(*kind) : nullptr;
}

bool MeansBlock(std::string_view sWord, std::string_view sRest) {
  return sWord.size() > 3 && !sRest.empty() && IsNear(sWord, "BLOCK", 2);
}

bool MeansEnd(std::string_view sWord) {
  return sWord.starts_with("END") || (sWord.size() > 1 && IsNear(sWord, "END", 1));
}

std::string_view FirstWord(std::string_view sText, const char* pSeparators) {
  return sText.substr(0, sText.find_first_of(pSeparators));
}

std::string_view Behind(std::string_view sText, std::string_view sWord, const char* pSeparators) {
  const std::size_t nBehind = sText.find_first_not_of(pSeparators, sWord.size());
  return sText.substr(std::min(nBehind, sText.size()));
}

}  // namespace

Statement MeantStatement(std::string_view sLine) {
  const std::string_view sContent = TrimSpaces(sLine);
  if (sContent.size() > LongestTyped) return {};
  const std::string_view sWord = FirstWord(sContent, " :");
  const std::string_view sRest = Behind(sContent, sWord, " :");
  const std::string sUpper = UpperCase(sWord);
  if (IsKeyOfAnyBlock(sUpper)) return {Statement::Kind::KeyValue, sWord, sRest, sContent};
  if (BlockTypeMeant(sUpper) != nullptr)  // the word BLOCK in front of it is missing
    return {Statement::Kind::StartBlock, sWord, FirstWord(sRest, " "), sContent};
  if (MeansBlock(sUpper, sRest)) {
    const std::string_view sType = FirstWord(sRest, " ");
    const std::string_view sName = Behind(sRest, sType, " ");
    return {Statement::Kind::StartBlock, sType, FirstWord(sName, " "), sContent};
  }
  if (MeansEnd(sUpper)) return {Statement::Kind::EndBlock, {}, {}, sContent};
  return {};
}

std::string Written(const Statement& statement) {
  const std::string sWord(statement.sWord);
  const std::string sRest(statement.sRest);
  switch (statement.kind) {
    case Statement::Kind::StartBlock: {
      const char* const pMeant = BlockTypeMeant(UpperCase(sWord));
      return "BLOCK " + (pMeant != nullptr ? pMeant : sWord) + (sRest.empty() ? "" : " " + sRest);
    }
    case Statement::Kind::KeyValue:
      return sWord + " = " + sRest;
    default:
      return "END";
  }
}

}  // namespace trelin
