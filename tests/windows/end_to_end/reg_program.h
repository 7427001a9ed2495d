#pragma once

#include <filesystem>
#include <map>
#include <string>

// The launcher's part of the registry, by the system's own reg.exe: another
// program must find there what the launcher writes, and the other way round.
namespace end_to_end {

// The texts of a key below the launcher's root, by name; none without the key.
std::map<std::string, std::string> ReadKey(const std::string& sKey);

// Adds what a file of the registry editor's format holds.
void ImportRecords(const std::filesystem::path& file);

// An empty root while it lives; what was there before comes back.
class EmptyRecords {
 public:
  EmptyRecords();
  ~EmptyRecords();
  EmptyRecords(const EmptyRecords&) = delete;
  EmptyRecords& operator=(const EmptyRecords&) = delete;
};

}  // namespace end_to_end
