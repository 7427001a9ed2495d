#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "suite/line_reader.h"
#include "suite/statement.h"

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

  enum class Token : std::int16_t { StartBlock, EndBlock, KeyValue, EndFile };
  static constexpr Token TokenStartBlock() { return Token::StartBlock; }
  static constexpr Token TokenEndBlock() { return Token::EndBlock; }
  static constexpr Token TokenKeyValue() { return Token::KeyValue; }
  static constexpr Token TokenEndFile() { return Token::EndFile; }

  // Of the last key line, until the next one; of the last block start (also after its END).
  std::string_view Key() const { return sKey_; }
  std::string_view Value() const { return sValue_; }
  const std::string& BlockName() const { return sBlockName_; }
  const std::string& BlockType() const { return sBlockType_; }

  // Opens the file, closing one that is open. Writing is not implemented:
  // error 5000, and nothing changes. Throws PlatformError when the file does
  // not open.
  void OpenFile(const std::string& sFile, bool bWrite);

  // Closes the file if one is open, as destroying the parser does.
  void CloseFile();

  // Reads on to the next token. At the end of the file, and ever after,
  // TokenEndFile. Throws error 5000 for a line that is none of the kinds;
  // the next call goes on behind it.
  Token GetToken();

  // Whether sLine, with its tabs expanded and trimmed, is of that kind; if so,
  // they set the properties of the kind.
  bool ParseBlock(std::string_view sLine);
  bool ParseEnd(std::string_view sLine) const;
  bool ParseKeyValue(std::string_view sLine);

  // sSource, the line behind the current one, with each tab replaced by one space.
  std::string ExpandTabs(const std::string& sSource) const;

  // The number of lines read since OpenFile: the number, from 1, of the line
  // read last, blank lines and comments included.
  std::int32_t CurrentLine() const { return lCurrentLine_; }

 private:
  // Sets the properties of the statement's kind.
  Token Take(const Statement& statement);
  void TakeEntry(const Statement& statement);
  bool TakeIf(const Statement& statement, Statement::Kind kind);

  LineReader lines_;
  std::int32_t lCurrentLine_ = 0;
  std::string sEntry_;              // the last key line
  std::string_view sKey_, sValue_;  // in it
  std::string sBlockType_, sBlockName_;
};

// Reads the block that objParser has just started, up to its END or that of the
// file: onKey takes each key and value, onBlock the start of each block in it.
template <class OnKey, class OnBlock>
void ReadBlock(BlockParser& objParser, const OnKey& onKey, const OnBlock& onBlock) {
  for (;;) {
    const BlockParser::Token token = objParser.GetToken();
    if (token == BlockParser::TokenKeyValue())
      onKey(objParser.Key(), objParser.Value());
    else if (token == BlockParser::TokenStartBlock())
      onBlock();
    else
      return;
  }
}

}  // namespace trelin
