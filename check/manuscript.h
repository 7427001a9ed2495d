#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"

namespace trelin {

// A setup list while it is mended: its lines, each with its end, and what they were.
class Manuscript {
 public:
  // The bytes of the file, which is put into the ANSI code page.
  explicit Manuscript(std::string_view sFile);

  // Takes a text in UTF-8 or UTF-16 into the ANSI code page, if that has all its
  // characters. One that would read as UTF-8 there, too, stays: nobody knows which of the
  // two is meant.
  void PutInCodePage();

  // What the file is to be.
  std::string Text() const;

  // How many lines are others than in the file, or new.
  std::size_t ChangedLines() const;

  // Where lines end in several ways, all end as most of them do.
  void UnifyLineEnds();

  // Makes those corrections that do not meet others in the same line; places are those
  // of the text as it is now, in their order. False when there was none to make.
  bool Correct(const std::vector<Correction>& corrections);

  // What is changed, as a unified diff of the bytes of the file of that name. Of one
  // whose lines do not end as a diff has them it says only that it changes.
  std::string Diff(const std::string& sName) const;

 private:
  struct Line {
    std::string sText;
    std::string sEnd;     // empty only of the last one
    std::string sBefore;  // with its end
    bool bNew = false;    // then there was none before

    void Replace(const Correction& correction);
    std::string Now() const { return sText + sEnd; }
    bool Changed() const { return bNew || Now() != sBefore; }
  };

  static std::vector<Line> Split(std::string_view sText);
  std::string UsualEnd() const;
  static void AddLines(std::string_view sText, const std::string& sEnd, std::vector<Line>& lines);
  std::string Hunk(std::size_t nFirst, std::size_t nEnd) const;

  std::vector<Line> lines_;
  bool bHasDiff_ = true;
};

}  // namespace trelin
