#pragma once

#include <functional>
#include <string>
#include <vector>

namespace trelin {

// A command line taken apart.
struct CommandLine {
  std::string sProgram;    // without the quotes that it stood in
  bool bQuoted = false;    // it stood in quotes
  std::string sArguments;  // what stands behind it, as it is
};

// What the system holds at a path.
struct PathTests {
  std::function<bool(const std::string&)> isFile;
  std::function<bool(const std::string&)> isFolder;
};

// With a folder C:\My Suite that holds setup.exe, and a file C:\My:
//
//   command line                        program                    arguments
//   "C:\My Suite\setup.exe" /q          C:\My Suite\setup.exe      /q
//   "C:\My Suite\set up                 C:\My Suite\set up
//   C:\My Suite\setup.exe /q            C:\My Suite\setup.exe      /q
//   C:\My Suite\gone.exe /q             C:\My Suite\gone.exe /q
//   C:\My Suit\setup.exe                C:\My                      Suit\setup.exe
//
// A program in quotes ends at the closing quote. Without quotes it is the
// longest leading part, ending at a space or at the end, that is a file and
// does not end within the name of a folder that is there: a program that stands
// higher in the tree is not meant. When there is none, it is all of the text.
// A part of more than 32,767 characters, the longest path of any system, counts
// as neither file nor folder and is not asked about.
CommandLine ResolveCommandLine(const std::string& sCommandLine, const PathTests& path);

// What stands on a process's own command line behind the name that the
// program was started by and the blanks there. The name ends at the first
// blank that is not between quotes.
std::string TextAfterProgram(const std::string& sCommandLine);

// The arguments in sText by the rules of Windows programs: spaces and tabs
// separate them except between double quotes; before a quote two backslashes
// stand for one, and an odd backslash makes the quote an ordinary character,
// as does a second quote between quotes:
//
//   text        argument          text        argument
//   "a b"c      a bc              a\\b        a\\b
//   "a""b"      a"b               "a\\"b      a\b
//   ""          (empty)           a\"b        a"b
std::vector<std::string> SplitArguments(const std::string& sText);

}  // namespace trelin
