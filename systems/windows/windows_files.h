#pragma once

#include <memory>
#include <string>

#include "seam/system.h"

namespace trelin {

// System::OpenInput. Others may read the file meanwhile. A folder does not
// open.
std::unique_ptr<InputFile> OpenWindowsFile(const std::string& sPath);

// The standard input, as a file of its own.
std::unique_ptr<InputFile> OpenWindowsStandardInput();

// Writes a file that is opened in this way (CREATE_NEW, CREATE_ALWAYS). True when all of
// it is on the disk, else GetLastError says why.
bool WriteWindowsFile(const std::string& sPath, const std::string& sBytes, unsigned long lCreation);

// ReplaceWholeFile. The file keeps its rights and attributes.
void ReplaceWindowsFile(const std::string& sPath, const std::string& sBytes);

// System::Search, by the system's own rules for wildcards and short names.
std::unique_ptr<FileSearch> SearchWindowsFiles(const std::string& sPath);

// Whether sPath is there and a folder, or there and none.
bool IsFolder(const std::string& sPath);
bool IsFile(const std::string& sPath);

}  // namespace trelin
