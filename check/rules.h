#pragma once

namespace trelin {

// Something that trelin-check looks for. Each rule is one object and stands with
// what finds it; they are told apart by their addresses.
struct Rule {
  const char* pName;     // "unknown-key"; it is part of the output, so it stays as it is
  const char* pSummary;  // one sentence
  const char* pReason;   // what comes of it, for authors who do not know the rule
};

// The rules of reading, and those that several files look for.
namespace rule {

inline constexpr Rule NotUnderstood = {
    "not-understood", "A line is no block start, block end, entry or comment.",
    "The launcher stops there and shows its user an error. Write a block start, END or KEY = "
    "value, or begin the line with a semicolon."};
inline constexpr Rule LineTooLong = {
    "line-too-long", "A line has more than 32,767 characters.",
    "The launcher counts positions within a line up to 32,767. It stops where a tab, an equals "
    "sign or a space between words stands beyond."};
inline constexpr Rule MustBegin = {
    "must-begin", "The first statement is not BLOCK SETUPLIST.",
    "The launcher reads nothing else before it and stops with an error."};
inline constexpr Rule WrongBlock = {
    "wrong-block", "A block stands where a block of its type may not.",
    "The launcher stops there. Products are blocks APPLICATION in the list, prerequisites blocks "
    "DEPENDENCY in a product; often an END is missing before."};
inline constexpr Rule AfterEnd = {"after-end", "Something follows the END of the SETUPLIST block.",
                                  "The launcher stops there. Only empty lines and comments may "
                                  "follow; often an END is one too many before."};
inline constexpr Rule MissingEnd = {"missing-end", "A block has no END.",
                                    "The launcher takes the end of the file for it, which works, "
                                    "but hides where a block was meant to end."};
inline constexpr Rule UnknownKey = {
    "unknown-key", "The launcher does not know a key.",
    "The launcher beeps or shows a message for each, and leaves the entry out."};
inline constexpr Rule ByteOrderMark = {
    "byte-order-mark", "The file begins with a byte order mark.",
    "The launcher takes it for text, so that the first line is none that it knows. Save the file "
    "without it, in the ANSI code page."};
inline constexpr Rule NotAnsi = {"not-ansi", "A text is not in the ANSI code page.",
                                 "The launcher takes each byte for a character of the ANSI code "
                                 "page and shows others than were meant."};
inline constexpr Rule IdleAllowance = {
    "idle-allowance", "A comment allows what is not found.",
    "It hides the finding should it come one day, and nobody knows why."};
inline constexpr Rule LongText = {
    "long-text", "A text does not fit into its place in the menu.",
    "Its end is cut off in the menu; the whole text is in a tooltip only."};

}  // namespace rule

}  // namespace trelin
