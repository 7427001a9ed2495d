// The first line of the input is a command line. Each of the others says which
// leading part of it is a file ("f" and a byte, where it ends) or a folder ("d").

#include "shared/command_line.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/target.h"

namespace trelin {

namespace {

struct Disk {
  std::set<std::string> files;
  std::set<std::string> folders;
};

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// Whether the file, a leading part of sText, can be the program.
bool IsProgram(const std::string& sText, const std::string& sFile, const Disk& disk) {
  const std::size_t nEnd = sFile.size();
  if (nEnd == 0 || (nEnd < sText.size() && (sText[nEnd] != ' ' || sText[nEnd - 1] == ' ')))
    return false;
  return std::none_of(disk.folders.begin(), disk.folders.end(), [&](const std::string& sFolder) {
    return sFolder.size() >= nEnd && sFolder.size() < sText.size() &&
           IsSeparator(sText[sFolder.size()]);
  });
}

// sText: without spaces around it.
std::string ExpectedProgram(const std::string& sText, const Disk& disk) {
  std::string sProgram;
  for (const std::string& sFile : disk.files)
    if (sFile.size() > sProgram.size() && IsProgram(sText, sFile, disk)) sProgram = sFile;
  return sProgram.empty() ? sText : sProgram;
}

std::string Trimmed(const std::string& sText) {
  const std::size_t nFirst = std::min(sText.find_first_not_of(' '), sText.size());
  return sText.substr(nFirst, sText.find_last_not_of(' ') + 1 - nFirst);
}

void CheckResolving(const std::string& sLine, const Disk& disk) {
  const auto isIn = [](const std::set<std::string>& paths) {
    return [&paths](const std::string& sPath) {
      Check(sPath.size() <= 32767, "no path is asked about that is longer than paths can be");
      return paths.contains(sPath);
    };
  };
  const CommandLine command = ResolveCommandLine(sLine, {isIn(disk.files), isIn(disk.folders)});
  const std::string sText = sLine.substr(std::min(sLine.find_first_not_of(' '), sLine.size()));
  if (!sText.starts_with('"')) {
    Check(!command.bQuoted, "what stands in no quotes is not quoted");
    CheckEqual(ExpectedProgram(Trimmed(sText), disk), command.sProgram,
               "the longest file that is not cut from a folder's name");
    CheckEqual(sText, command.sProgram + command.sArguments, "the rest is kept");
    return;
  }
  Check(command.bQuoted, "what stands in quotes is quoted");
  Check(command.sProgram.find('"') == std::string::npos, "the program ends at the closing quote");
  const bool bClosed = sText.find('"', 1) != std::string::npos;
  CheckEqual(sText, '"' + command.sProgram + (bClosed ? "\"" : "") + command.sArguments,
             "the rest is kept");
}

void CheckTextAfterProgram(const std::string& sLine) {
  const std::string sRest = TextAfterProgram(sLine);
  Check(sLine.ends_with(sRest), "what stands behind the program stays as it is");
  Check(sRest.empty() || (sRest[0] != ' ' && sRest[0] != '\t'), "the blanks are left out");
  const std::string sBefore = sLine.substr(0, sLine.size() - sRest.size());
  Check(sRest.empty() || std::count(sBefore.begin(), sBefore.end(), '"') % 2 == 0,
        "the program does not end between quotes");
}

// As a program writes an argument that others are to read.
std::string Quoted(const std::string& sArgument) {
  std::string sQuoted = "\"";
  std::size_t nBackslashes = 0;
  for (const char c : sArgument) {
    if (c == '"') sQuoted.append(nBackslashes + 1, '\\');
    nBackslashes = c == '\\' ? nBackslashes + 1 : 0;
    sQuoted += c;
  }
  return sQuoted.append(nBackslashes, '\\') + '"';
}

void CheckArguments(const std::string& sLine, const std::vector<std::string>& texts) {
  std::size_t nLength = 0;
  for (const std::string& sArgument : SplitArguments(sLine)) nLength += sArgument.size();
  Check(nLength <= sLine.size(), "an argument consists of the text's characters");

  std::string sJoined;
  for (const std::string& sText : texts) sJoined += ' ' + Quoted(sText);
  Check(SplitArguments(sJoined) == texts, "arguments come back as they were written");
}

void Place(Disk& disk, const std::string& sLine, const std::string& sPlace) {
  if (sPlace.size() < 2) return;
  const std::string sText = Trimmed(sLine);
  const auto nEnd = static_cast<unsigned char>(sPlace[1]);
  const std::string sPath = sText.substr(0, std::min<std::size_t>(nEnd, sText.size()));
  if (sPlace[0] == 'd')
    disk.folders.insert(sPath);
  else if (!disk.folders.contains(sPath))
    disk.files.insert(sPath);
}

}  // namespace

void Try(std::string_view sInput) {
  Input input(sInput);
  const std::string sLine = input.Line();
  std::vector<std::string> texts;
  while (!input.Empty()) texts.push_back(input.Line());
  Disk disk;
  for (const char cKind : {'d', 'f'})
    for (const std::string& sText : texts)
      if (sText.starts_with(cKind)) Place(disk, sLine, sText);
  CheckResolving(sLine, disk);
  CheckTextAfterProgram(sLine);
  CheckArguments(sLine, texts);
}

}  // namespace trelin
