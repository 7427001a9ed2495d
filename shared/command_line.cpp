#include "shared/command_line.h"

#include <algorithm>
#include <cstddef>

namespace trelin {

namespace {

const char* const Blanks = " \t";

// In characters, of any system. No file or folder is looked for under a longer one:
// for a text of very many words the time would grow with the square of its length.
constexpr std::size_t LongestPath = 32767;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// The length of the longest leading part of sText that is a folder.
std::size_t FolderEnd(const std::string& sText, const PathTests& path) {
  std::size_t nEnd = sText.find_last_of("\\/", LongestPath);
  while (nEnd != std::string::npos && nEnd > 0 && !path.isFolder(sText.substr(0, nEnd)))
    nEnd = sText.find_last_of("\\/", nEnd - 1);
  return nEnd == std::string::npos ? 0 : nEnd;
}

// Where the next shorter part ends, at a space; 0 for none.
std::size_t ShorterEnd(const std::string& sText, std::size_t nEnd) {
  const std::size_t nSpace = sText.rfind(' ', std::min(nEnd - 1, LongestPath));
  return nSpace == std::string::npos ? 0 : sText.find_last_not_of(' ', nSpace) + 1;
}

// sText neither begins nor ends with a space; nor does a part of it. Most are a program
// without arguments, for which no folder is asked for.
std::size_t UnquotedProgramEnd(const std::string& sText, const PathTests& path) {
  const std::size_t nAll = sText.size();
  if (nAll == 0 || (nAll <= LongestPath && path.isFile(sText))) return nAll;
  const std::size_t nFolder = FolderEnd(sText, path);
  for (std::size_t n = ShorterEnd(sText, nAll); n > nFolder; n = ShorterEnd(sText, n))
    if (n <= LongestPath && path.isFile(sText.substr(0, n))) return n;
  return nAll;
}

// Reads the arguments of a command line, one Next a call.
class ArgumentReader {
 public:
  explicit ArgumentReader(const std::string& sText) : sText_(sText) {}

  bool SkipBlanks() {
    nNext_ = std::min(sText_.find_first_not_of(Blanks, nNext_), sText_.size());
    return nNext_ < sText_.size();
  }

  std::string Next() {
    std::string sArgument;
    bool bQuoted = false;
    while (nNext_ < sText_.size() && (bQuoted || !IsBlank(sText_[nNext_]))) {
      if (sText_[nNext_] == '\\') {
        ReadBackslashes(sArgument);
      } else if (sText_[nNext_] != '"') {
        sArgument += sText_[nNext_++];
      } else if (bQuoted && IsQuote(nNext_ + 1)) {
        sArgument += '"';
        nNext_ += 2;
      } else {
        bQuoted = !bQuoted;
        ++nNext_;
      }
    }
    return sArgument;
  }

 private:
  bool IsQuote(std::size_t nAt) const { return nAt < sText_.size() && sText_[nAt] == '"'; }

  // Leaves a quote behind them that no backslash escapes to Next.
  void ReadBackslashes(std::string& sArgument) {
    const std::size_t nEnd = std::min(sText_.find_first_not_of('\\', nNext_), sText_.size());
    const std::size_t nCount = nEnd - nNext_;
    const bool bEscapes = IsQuote(nEnd);
    nNext_ = nEnd;
    sArgument.append(bEscapes ? nCount / 2 : nCount, '\\');
    if (bEscapes && nCount % 2 == 1) sArgument += sText_[nNext_++];
  }

  const std::string& sText_;
  std::size_t nNext_ = 0;
};

}  // namespace

CommandLine ResolveCommandLine(const std::string& sCommandLine, const PathTests& path) {
  const std::size_t nStart = std::min(sCommandLine.find_first_not_of(' '), sCommandLine.size());
  const std::string sText = sCommandLine.substr(nStart);
  if (!sText.starts_with('"')) {
    const std::string sTrimmed = sText.substr(0, sText.find_last_not_of(' ') + 1);
    const std::size_t nEnd = UnquotedProgramEnd(sTrimmed, path);
    return {sText.substr(0, nEnd), false, sText.substr(nEnd)};
  }
  const std::size_t nClosing = std::min(sText.find('"', 1), sText.size());
  const std::size_t nRest = std::min(nClosing + 1, sText.size());
  return {sText.substr(1, nClosing - 1), true, sText.substr(nRest)};
}

std::string TextAfterProgram(const std::string& sCommandLine) {
  bool bQuoted = false;
  std::size_t nEnd = 0;
  for (; nEnd < sCommandLine.size() && (bQuoted || !IsBlank(sCommandLine[nEnd])); ++nEnd)
    if (sCommandLine[nEnd] == '"') bQuoted = !bQuoted;
  return sCommandLine.substr(
      std::min(sCommandLine.find_first_not_of(Blanks, nEnd), sCommandLine.size()));
}

std::vector<std::string> SplitArguments(const std::string& sText) {
  std::vector<std::string> arguments;
  ArgumentReader reader(sText);
  while (reader.SkipBlanks()) arguments.push_back(reader.Next());
  return arguments;
}

}  // namespace trelin
