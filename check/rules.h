#pragma once

namespace trelin {

// Something that trelin-check looks for. Each rule is one object and stands with
// what finds it; they are told apart by their addresses.
struct Rule {
  const char* pName;     // "unknown-key"; it is part of the output, so it stays as it is
  const char* pSummary;  // one sentence
};

// The rules of reading, and those that several files look for.
namespace rule {

inline constexpr Rule NotUnderstood = {"not-understood",
                                       "A line is no block start, block end, entry or comment."};
inline constexpr Rule LineTooLong = {"line-too-long", "A line has more than 32,767 characters."};
inline constexpr Rule MustBegin = {"must-begin", "The first statement is not BLOCK SETUPLIST."};
inline constexpr Rule WrongBlock = {"wrong-block",
                                    "A block stands where a block of its type may not."};
inline constexpr Rule AfterEnd = {"after-end", "Something follows the END of the SETUPLIST block."};
inline constexpr Rule MissingEnd = {"missing-end", "A block has no END."};
inline constexpr Rule ByteOrderMark = {"byte-order-mark",
                                       "The file begins with a byte order mark."};
inline constexpr Rule NotAnsi = {"not-ansi", "A text is not in the ANSI code page."};
inline constexpr Rule LongText = {"long-text", "A text does not fit into its place in the menu."};

}  // namespace rule

}  // namespace trelin
