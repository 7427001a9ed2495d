#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "check/source_lines.h"
#include "suite/statement.h"

namespace trelin {

// A part of a statement, and where it stands in its line.
struct StatementPart {
  const char* pText = nullptr;  // null for none
  std::int32_t lColumn = 1;
  std::int32_t lLength = 0;  // of what stands there, also without a text

  std::string_view Text() const;
};

// A statement as the launcher understands it, and where its parts stand. A list may
// have millions of them.
struct ListStatement {
  Statement::Kind kind = Statement::Kind::None;
  std::int32_t lLine = 0;
  StatementPart key;    // of an entry; the type of a block start; in upper case
  StatementPart value;  // of an entry; the name of a block start

  std::string_view Key() const { return key.Text(); }
  std::string_view Value() const { return value.Text(); }
  Place KeyPlace() const { return PlaceOf(key); }      // without a key, the statement
  Place ValuePlace() const { return PlaceOf(value); }  // of an empty one, behind the equals sign

 private:
  Place PlaceOf(const StatementPart& part) const;
};

// Unknown: what nobody can tell, so that nothing in it is judged.
enum class BlockKind { SetupList, Application, Dependency, Unknown };

// A block of the setup list as it stands in the file.
struct ListBlock {
  BlockKind kind = BlockKind::SetupList;
  Place start;                                // its start line
  std::int32_t lLastLine = 0;                 // its END, or the last line of the file
  std::size_t nAround = 0;                    // the number of the block around it
  std::vector<const ListStatement*> entries;  // in the order of the file
  std::string sCode;  // its product code in upper case: the registry finds any letter case

  // The entry that counts: the last one of that key; a null pointer when there
  // is none.
  const ListStatement* Find(std::string_view sKey) const;

  // Its value; empty without one.
  std::string_view Value(std::string_view sKey) const;

  // Where to point for that key: its value, or the start of the block.
  Place PlaceOf(std::string_view sKey) const;
};

const char* NameOf(BlockKind kind);                        // "APPLICATION"
std::span<const std::string_view> KeysOf(BlockKind kind);  // those that the launcher knows

// The number of the key among these; nothing for another one.
std::optional<std::size_t> KeyNumber(BlockKind kind, std::string_view sKey);
inline bool IsKeyOf(BlockKind kind, std::string_view sKey) {
  return KeyNumber(kind, sKey).has_value();
}

// A setup list with the places of everything in it, and what was wrong in its
// format. What can be read is there also behind a fault. Texts are parts of the
// lines or of the spellings.
struct CheckedList {
  std::string sName;  // of the file, without its folder
  SourceLines lines;
  std::deque<std::string> spellings;      // what the file spells otherwise
  std::vector<ListStatement> statements;  // all that were understood
  std::vector<ListBlock> blocks;          // by their start lines; the first is the outer one
  Findings faults;

  // A message of the launcher's about its list, as far as it is for authors: the
  // first paragraph, with the name of this file.
  std::string LaunchersWords(std::string sMessage) const;

  // The products in the order of the file.
  std::vector<const ListBlock*> Products() const;

  // The statement in a line, without the blanks around it.
  Place PlaceInLine(std::int32_t lLine) const;
};

}  // namespace trelin
