#include "systems/host/folder_index.h"

#include <filesystem>
#include <system_error>
#include <unordered_map>

#include "shared/code_page.h"
#include "systems/host/file_stamp.h"

namespace trelin {

namespace {

struct FolderIndex {
  std::string sFolder;
  FileStamp stamp;
  bool bSettled = false;                                 // an equal stamp means an unchanged folder
  std::unordered_map<std::string, std::string> entries;  // by their names in upper case
};

FolderIndex ReadFolder(const std::string& sFolder, const FileStamp& stamp) {
  FolderIndex index{sFolder, stamp, stamp.Settled(), {}};
  std::error_code error;
  std::filesystem::directory_iterator entry(sFolder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string sEntry = entry->path().filename().string();
    const std::string sName = FromUtf8(sEntry);
    if (ToUtf8(sName) != sEntry) continue;  // has a character that the code page lacks
    const auto [place, bNew] = index.entries.try_emplace(UpperCase1252(sName), sEntry);
    if (!bNew && sEntry < place->second) place->second = sEntry;
  }
  return index;
}

// Null when there is no such folder.
const FolderIndex* IndexOf(const std::string& sFolder) {
  static FolderIndex last;
  const FileStamp stamp = FileStamp::Of(sFolder);
  if (stamp.nReason != 0) return nullptr;
  if (!last.bSettled || last.sFolder != sFolder || last.stamp != stamp)
    last = ReadFolder(sFolder, stamp);
  return &last;
}

}  // namespace

std::optional<std::string> FindFolderEntry(const std::string& sFolder, const std::string& sName) {
  const FolderIndex* index = IndexOf(sFolder.empty() ? "." : sFolder);
  if (index == nullptr) return std::nullopt;
  const auto entry = index->entries.find(UpperCase1252(FromUtf8(sName)));
  return entry == index->entries.end() ? sName : entry->second;
}

}  // namespace trelin
