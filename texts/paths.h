#pragma once

#include <string>

namespace trelin {

// Makes a folder's path end in one backslash: trailing spaces are dropped and
// a backslash is added, unless one stands before them; then nothing changes.
void AddBackslash(std::string& sFolder);

// The folder, a backslash where it has none, and the file name, both without
// leading and trailing spaces. The name is appended even when it is empty or
// itself a full path.
std::string JoinPath(const std::string& sFolder, const std::string& sFile);

// Whether at least one normal file (not hidden, no system file, no folder)
// matches sPath, whose last component may hold the wildcards * and ?. Never
// throws: what cannot be searched does not exist.
bool FileExists(const std::string& sPath);

// The folder, a backslash unless it ends in one, and the file name, both as they
// are.
std::string InFolder(const std::string& sFolder, const std::string& sFile);

// The full path of sFile in the program's folder, as InFolder makes it.
std::string ProgramFile(const std::string& sFile);

}  // namespace trelin
