#pragma once

#include <functional>
#include <string>
#include <vector>

namespace trelin {

struct CommandLine {
  std::string sProgram;
  std::vector<std::string> arguments;
};

// Takes a command line apart; with isFile true for C:\My Suite\setup.exe only:
//
//   command line                        program                 arguments
//   "C:\My Suite\setup.exe" /q          C:\My Suite\setup.exe   /q
//   "C:\My Suite\set up                 C:\My Suite\set up
//   C:\My Suite\setup.exe /q            C:\My Suite\setup.exe   /q
//   C:\My Suite\gone.exe /q             C:\My                   Suite\gone.exe  /q
//
// A program in quotes ends at the closing quote. Without quotes it is the
// longest leading part, ending at a space or at the end, that is a file; when
// none is, the part up to the first space.
//
// The arguments follow the rules of Windows programs: spaces and tabs separate
// them except between double quotes; before a quote two backslashes stand for
// one, and an odd backslash makes the quote an ordinary character, as does a
// second quote between quotes:
//
//   text        argument          text        argument
//   "a b"c      a bc              a\\b        a\\b
//   "a""b"      a"b               "a\\"b      a\b
//   ""          (empty)           a\"b        a"b
CommandLine ResolveCommandLine(const std::string& sCommandLine,
                               const std::function<bool(const std::string&)>& isFile);

}  // namespace trelin
