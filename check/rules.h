#pragma once

#include <span>

namespace trelin {

// What trelin-check looks for. The names are part of its output, so they stay
// as they are.
enum class Rule {
  NotUnderstood,
  LineTooLong,
  MustBegin,
  WrongBlock,
  AfterEnd,
  MissingEnd,
  ByteOrderMark,
  NotAnsi,
  UnknownKey,
  RepeatedKey,
  TooManyProducts,
  NoTitle,
  NoInstaller,
  NoCode,
  NoRevision,
  RepeatedCode,
  NotOffered,
  RevisionNotOffered,
  Circle,
  RevisionOrder,
  PictureMissing,
  PictureUnreadable,
  InstallerMissing,
  ReadMeMissing,
  ReadMeAmbiguous,
  NotAProgram,
  LongText,
  LibraryDamaged,
  MissingText,
  UnknownText,
  Placeholders,
  TextTooLong,
  TextNotAnsi,
  AccessKey,
  AlikeTexts,
};

struct RuleText {
  Rule rule;
  const char* pName;     // "unknown-key"
  const char* pSummary;  // one sentence
};

// All rules, in the order of their numbers.
std::span<const RuleText> Rules();

const RuleText& TextOf(Rule rule);

}  // namespace trelin
