#include "check/manuscript.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "check/encoding.h"
#include "shared/code_page.h"

namespace trelin {

namespace {

constexpr std::size_t Context = 3;  // unchanged lines around a change in a diff

// A line of a diff; one without an end says so, as programs that read diffs want it.
std::string DiffLine(char cSign, const std::string& sLine) {
  return cSign + sLine + (sLine.ends_with('\n') ? "" : "\n\\ No newline at end of file\n");
}

// Whether a text that is in the code page would be taken for one that is not.
bool IsMistakable(std::string_view sText) {
  return IsUtf16(sText) || (!IsAscii(sText) && IsUtf8(sText));
}

std::int32_t LineNumber(std::size_t nIndex) { return static_cast<std::int32_t>(nIndex) + 1; }

}  // namespace

Manuscript::Manuscript(std::string_view sFile) : lines_(Split(sFile)) {
  bHasDiff_ = !IsUtf16(sFile) && std::none_of(lines_.begin(), lines_.end(),
                                              [](const Line& line) { return line.sEnd == "\r"; });
  PutInCodePage();
}

void Manuscript::PutInCodePage() {
  const std::string sText = Text();
  const auto sRecoded = InCodePage(sText);
  if (!sRecoded || *sRecoded == sText || IsMistakable(*sRecoded)) return;
  std::vector<Line> recoded = Split(*sRecoded);
  const bool bSameLines = !IsUtf16(sText);
  bHasDiff_ = bHasDiff_ && bSameLines;
  for (std::size_t n = 0; n < recoded.size(); ++n) {
    recoded[n].sBefore = bSameLines ? lines_[n].sBefore : "";
    recoded[n].bNew = bSameLines && lines_[n].bNew;
  }
  lines_ = std::move(recoded);
}

std::vector<Manuscript::Line> Manuscript::Split(std::string_view sText) {
  std::vector<Line> lines;
  while (!sText.empty()) {
    const std::size_t nLine = std::min(sText.find_first_of("\r\n"), sText.size());
    const std::size_t nEnd = sText.substr(nLine).starts_with("\r\n") ? 2 : 1;
    const std::string_view sWhole = sText.substr(0, nLine + nEnd);
    lines.push_back({std::string(sWhole.substr(0, nLine)), std::string(sWhole.substr(nLine)),
                     std::string(sWhole)});
    sText.remove_prefix(sWhole.size());
  }
  return lines;
}

std::string Manuscript::Text() const {
  std::string sText;
  for (const Line& line : lines_) sText += line.Now();
  return sText;
}

std::size_t Manuscript::ChangedLines() const {
  return static_cast<std::size_t>(
      std::count_if(lines_.begin(), lines_.end(), [](const Line& l) { return l.Changed(); }));
}

std::string Manuscript::UsualEnd() const {
  std::array<std::pair<std::ptrdiff_t, const char*>, 3> ends = {
      {{0, "\r\n"}, {0, "\n"}, {0, "\r"}}};
  for (auto& [nCount, pEnd] : ends)
    nCount = std::count_if(lines_.begin(), lines_.end(),
                           [pEnd = pEnd](const Line& line) { return line.sEnd == pEnd; });
  return std::max_element(
             ends.begin(), ends.end(),
             [](const auto& one, const auto& other) { return one.first < other.first; })
      ->second;
}

void Manuscript::UnifyLineEnds() {
  const std::string sUsual = UsualEnd();
  for (Line& line : lines_)
    if (!line.sEnd.empty()) line.sEnd = sUsual;
}

bool Manuscript::Correct(const std::vector<Correction>& corrections) {
  const std::string sEnd = UsualEnd();
  std::vector<Line> mended;
  mended.reserve(lines_.size() + corrections.size());
  auto correction = corrections.begin();
  for (std::size_t n = 0; n <= lines_.size(); ++n) {
    bool bReplaced = false;
    for (; correction != corrections.end() && correction->place.lLine <= LineNumber(n);
         ++correction) {
      if (correction->sText.ends_with('\n'))
        AddLines(correction->sText, sEnd, mended);
      else if (n < lines_.size() && !std::exchange(bReplaced, true))
        lines_[n].Replace(*correction);
    }
    if (n < lines_.size()) mended.push_back(std::move(lines_[n]));
  }
  lines_ = std::move(mended);
  return !corrections.empty();
}

void Manuscript::Line::Replace(const Correction& correction) {
  sText.replace(static_cast<std::size_t>(correction.place.lColumn) - 1,
                static_cast<std::size_t>(correction.place.lLength), correction.sText);
}

// The line above may be the last one, without an end.
void Manuscript::AddLines(std::string_view sText, const std::string& sEnd,
                          std::vector<Line>& lines) {
  if (!lines.empty() && lines.back().sEnd.empty()) lines.back().sEnd = sEnd;
  while (!sText.empty()) {
    const std::size_t nLine = sText.find('\n');
    lines.push_back({std::string(sText.substr(0, nLine)), sEnd, "", true});
    sText.remove_prefix(nLine + 1);
  }
}

std::string Manuscript::Diff(const std::string& sName) const {
  if (!bHasDiff_ && ChangedLines() > 0)
    return "Binary files " + sName + " and " + sName + " differ\n";
  std::string sHunks;
  for (std::size_t n = 0; n < lines_.size();) {
    if (!lines_[n].Changed()) {
      ++n;
      continue;
    }
    const std::size_t nFirst = n - std::min(n, Context);
    std::size_t nEnd = n + 1 + Context;  // changes that are near stand in the same hunk
    for (; n < lines_.size() && n < nEnd + Context; ++n)
      if (lines_[n].Changed()) nEnd = n + 1 + Context;
    n = std::min(nEnd, lines_.size());
    sHunks += Hunk(nFirst, n);
  }
  return sHunks.empty() ? "" : "--- " + sName + "\n+++ " + sName + "\n" + sHunks;
}

std::string Manuscript::Hunk(std::size_t nFirst, std::size_t nEnd) const {
  const auto isNew = [](const Line& line) { return line.bNew; };
  const auto at = [this](std::size_t n) { return lines_.begin() + static_cast<std::ptrdiff_t>(n); };
  const auto nNew = static_cast<std::size_t>(std::count_if(at(nFirst), at(nEnd), isNew));
  const auto nNewAbove = static_cast<std::size_t>(std::count_if(at(0), at(nFirst), isNew));
  std::string sLines, sRemoved, sAdded;
  for (std::size_t n = nFirst; n < nEnd; ++n) {
    const Line& line = lines_[n];
    if (line.Changed()) {
      if (!line.bNew) sRemoved += DiffLine('-', line.sBefore);
      sAdded += DiffLine('+', line.Now());
      continue;
    }
    sLines += sRemoved + sAdded + DiffLine(' ', line.sBefore);
    sRemoved = sAdded = "";
  }
  const auto range = [](std::size_t nBegin, std::size_t nLines) {
    return std::to_string(nLines == 0 ? nBegin : nBegin + 1) + "," + std::to_string(nLines);
  };
  return "@@ -" + range(nFirst - nNewAbove, nEnd - nFirst - nNew) + " +" +
         range(nFirst, nEnd - nFirst) + " @@\n" + sLines + sRemoved + sAdded;
}

}  // namespace trelin
