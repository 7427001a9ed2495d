#pragma once

#include <string>

// The launcher's part of the registry, by the system's own reg.exe: another
// program must find there what the launcher writes, and the other way round.
namespace end_to_end {

// The texts of a key below the launcher's root, as lines "name=text".
std::string ReadKey(const std::string& sKey);

void RunReg(const std::string& sArguments);  // throws when it fails

// An empty root while it lives; what was there before comes back.
class EmptyRecords {
 public:
  EmptyRecords();
  ~EmptyRecords();
  EmptyRecords(const EmptyRecords&) = delete;
  EmptyRecords& operator=(const EmptyRecords&) = delete;
};

}  // namespace end_to_end
