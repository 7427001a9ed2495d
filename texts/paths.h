#pragma once

#include <string>

namespace trelin {

// A file in a folder: the folder, a backslash unless it ends in one, and the name,
// both as they are. For whatever the program itself opens or looks for.
std::string InFolder(const std::string& sFolder, const std::string& sFile);

// The same for the program's own folder.
std::string ProgramFile(const std::string& sFile);

// The folder that a file is in, with the backslash at its end; "." for a name alone.
std::string FolderOf(const std::string& sFile);

// Whoever names a suite's folder means the setup list in it: the path of that, or of the
// list itself.
std::string SetupListIn(const std::string& sPath);

// The path for a command line, from texts that users have written: the folder and
// the name, both without leading and trailing spaces, with a backslash between
// them as AddBackslash has it. The name is appended even when it is empty or itself
// a full path.
std::string JoinPath(const std::string& sFolder, const std::string& sFile);

// Makes a folder's path end in one backslash: trailing spaces are dropped and
// a backslash is added, unless one stands before them; then nothing changes.
void AddBackslash(std::string& sFolder);

// Whether at least one normal file (not hidden, no system file, no folder)
// matches sPath, whose last component may hold the wildcards * and ?. Never
// throws: what cannot be searched does not exist.
bool FileExists(const std::string& sPath);

}  // namespace trelin
