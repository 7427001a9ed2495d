#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "suite/line_reader.h"

namespace trelin {

// Reads a block-structured text file, one token at a time:
//
//   ; a comment: a line whose first character is ";"
//   BLOCK SETUPLIST Suite      start of a block: its type, then its name
//     TITLE = Suite Setup      a key and its value
//   END                        end of a block; what follows END is ignored
//
// Tabs count as spaces, spaces around lines, keys and values do not count,
// words are separated by spaces. Keywords, types and keys match in any letter
// case and are delivered in upper case; names and values keep theirs. There
// are no quotes, escapes, continued lines or trailing comments. A line ends
// at CR LF, CR or LF. Which blocks and keys there may be is the caller's
// business.
//
// Positions within a line are 16-bit: a tab, the first "=" or a space between
// words beyond position 32,767 throws std::overflow_error.
class BlockParser {
 public:
  BlockParser() = default;
  BlockParser(const BlockParser&) = delete;
  BlockParser& operator=(const BlockParser&) = delete;

  // The tokens.
  static constexpr std::int16_t TokenStartBlock() { return 0; }
  static constexpr std::int16_t TokenEndBlock() { return 1; }
  static constexpr std::int16_t TokenKeyValue() { return 2; }
  static constexpr std::int16_t TokenEndFile() { return 3; }

  // Of the last key line; of the last block start (also after its END). The
  // texts lie in the parser, whose next call may move them.
  std::string_view Key() const { return Key_.sText; }
  std::string_view Value() const { return Value_.sText; }
  std::string_view BlockName() const { return BlockName_.sText; }
  std::string_view BlockType() const { return BlockType_.sText; }

  // Opens the file, closing one that is open. Writing is not implemented:
  // error 5000, and nothing changes. Throws PlatformError when the file does
  // not open.
  void OpenFile(const std::string& sFile, bool bWrite);

  // Closes the file if one is open, as destroying the parser does.
  void CloseFile();

  // Reads on to the next token. At the end of the file, and ever after,
  // TokenEndFile. Throws error 5000 for a line that is none of the kinds;
  // the next call goes on behind it.
  std::int16_t GetToken();

  // Whether sLine, with its tabs expanded and trimmed, is of that kind; if so,
  // they set the properties of the kind.
  bool ParseBlock(const std::string& sLine);
  bool ParseEnd(const std::string& sLine) const;
  bool ParseKeyValue(const std::string& sLine);

  // sSource with each tab replaced by one space.
  std::string ExpandTabs(const std::string& sSource) const;

  // The number of lines read since OpenFile: the number, from 1, of the line
  // read last, blank lines and comments included.
  std::int32_t CurrentLine() const { return lCurrentLine_; }

 private:
  // A property. It lies in the line that it was read from, which saves copying
  // most of them, until that line has to give way.
  struct Property {
    std::string_view sText;
    std::string sKept;

    void Keep() { sText = sKept = sText; }
  };

  void KeepProperties();
  std::span<char> OwnLine(const std::string& sLine);
  void ExpandTabsOf(std::span<char> line) const;
  std::int16_t Classify(std::span<char> line);
  bool ReadBlock(std::span<char> line);
  bool ReadKeyValue(std::span<char> line);

  LineReader lines_;
  std::int32_t lCurrentLine_ = 0;
  Property Key_;
  Property Value_;
  Property BlockType_;
  Property BlockName_;
  std::string sOwnLine_;  // that a caller gave
};

}  // namespace trelin
