#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "check/source_lines.h"

namespace trelin {

struct ListEntry {
  std::string sKey;  // in upper case
  std::string sValue;
  Place key;
  Place value;
};

enum class BlockKind { SetupList, Application, Dependency };

// A block of the setup list as it stands in the file.
struct ListBlock {
  BlockKind kind = BlockKind::SetupList;
  Place start;
  std::vector<ListEntry> entries;
  std::vector<ListBlock> blocks;  // within this one

  // The entry that counts: the last one of that key; a null pointer when there
  // is none.
  const ListEntry* Find(std::string_view sKey) const;

  // Its value; empty without one.
  std::string_view Value(std::string_view sKey) const;

  // Where to point for that key: its value, or the start of the block.
  Place PlaceOf(std::string_view sKey) const;
};

const char* NameOf(BlockKind kind);               // "APPLICATION"
std::vector<const char*> KeysOf(BlockKind kind);  // those that the launcher knows

// A setup list with the places of everything in it, and what was wrong in its
// format. What can be read is there also behind a fault.
struct CheckedList {
  SourceLines lines;
  ListBlock outer;
  Findings faults;

  // The products in the order of the file.
  std::vector<const ListBlock*> Products() const;

  // Calls it for each block, outer ones first.
  void ForEachBlock(const std::function<void(const ListBlock&)>& use) const;
};

}  // namespace trelin
