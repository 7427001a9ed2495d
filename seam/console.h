#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "seam/registry.h"
#include "seam/system.h"

// What a command-line program and the platform under it ask of each other, in the
// place of entry.h. The platform's main puts a platform in use whose registry is an
// empty one in memory; there are no windows. What fails throws PlatformError, and only
// where it is said below.
namespace trelin {

// The program, defined once a program. Arguments are in the ANSI code page,
// without the program's name. Returns the exit code. What it throws is written
// to the standard error output, and the exit code is FailureCode.
int RunCommand(const std::vector<std::string>& arguments);

constexpr int FailureCode = 2;

// A path of the program as the user would write it on this system, in the ANSI code
// page.
std::string WrittenByUser(const std::string& sPath);

// The registry of this computer, as the launcher would find it.
std::unique_ptr<Registry> OpenRegistry();

// The name that this computer has in its network, in the ANSI code page.
std::string ComputerName();

// The SHA-256 digest of these bytes, in 64 hexadecimal digits. Throws PlatformError where
// the system cannot work it out.
std::string Sha256Of(const std::string& sBytes);

// The standard input, to be read once. Throws PlatformError, as reading it does.
std::unique_ptr<InputFile> OpenStandardInput();

// Puts a file with these bytes in the place of sPath's: whoever reads it finds the whole
// old one or the whole new one. Throws PlatformError; then the old one stands.
void ReplaceWholeFile(const std::string& sPath, const std::string& sBytes);

// Makes a folder; one that is there already is left as it is. Throws PlatformError.
void MakeFolder(const std::string& sPath);

// Writes a file that is not there yet, one that may be started if it is a program. Throws
// PlatformError.
void WriteNewFile(const std::string& sPath, const std::string& sBytes, bool bProgram);

// How the names of files with commands end that this system starts as programs: ".cmd"
// or ".sh".
std::string CommandFileEnd();

// What a terminal shows that the standard output goes to.
struct Terminal {
  std::int32_t lColumns = 0;  // 0: the output goes somewhere else, or nobody knows
  bool bColors = false;       // it takes the escape sequences of ECMA-48
};
Terminal OutputTerminal();

// Whether somebody sees at a terminal what goes to the output for errors.
bool ErrorsAreSeen();

// The number of this system's ANSI code page, such as 1252.
int AnsiCodePage();

// A text of the ANSI code page in UTF-8, and back: "?", or a similar one, stands for a
// character that the code page lacks.
std::string Utf8Of(const std::string& sText);
std::string AnsiOf(const std::string& sUtf8);

// Write a text in UTF-8 to the standard output, and to that for errors; a
// console shows its letters, a file gets the bytes. Throws PlatformError when it cannot
// be written.
void WriteOutput(const std::string& sUtf8);
void WriteErrorOutput(const std::string& sUtf8);

}  // namespace trelin
