#pragma once

#include <optional>
#include <string>

namespace trelin {

// The name, as the folder has it, of the entry that is sName (UTF-8) in some
// letter case of the code page 1252: the first in byte order when there are
// several, sName itself when there is none. Nothing when there is no such
// folder; an empty one is the current folder. The names of the folder that was
// asked for last are kept until it changes, so that asking for many files of
// one folder reads it once.
std::optional<std::string> FindFolderEntry(const std::string& sFolder, const std::string& sName);

}  // namespace trelin
