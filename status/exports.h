#pragma once

#include <memory>
#include <string>
#include <vector>

#include "shared/registry_node.h"

namespace trelin {

// The files that are meant by these: files, folders with files named *.reg in the order
// of their names, or "@" and a file that has one of these in each line. Throws
// PlatformError.
std::vector<std::string> ExportFiles(const std::vector<std::string>& given);

// Throws PlatformError, also for a file of more than 64 MB.
std::string ReadBytes(const std::string& sFile);

// The registry in an export. Throws PlatformError, with the line and what is wrong.
// sBytes takes the file's content; its memory serves for one export after the other.
std::unique_ptr<RegistryNode> ReadExport(const std::string& sFile, std::string& sBytes);

// The name of a workstation, after which the file is called.
std::string WorkstationOf(const std::string& sFile);

}  // namespace trelin
