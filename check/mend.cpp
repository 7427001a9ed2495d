#include "check/mend.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

#include "check/encoding.h"
#include "check/list_reader.h"

namespace trelin {

namespace {

// A correction may show others; hardly any list needs more than three rounds.
constexpr int MostRounds = 20;

class TextFile : public InputFile {
 public:
  explicit TextFile(std::string sText) : sText_(std::move(sText)) {}

  std::size_t Read(char* pBuffer, std::size_t nSize) override {
    const std::size_t nRead = sText_.copy(pBuffer, nSize, nAt_);
    nAt_ += nRead;
    return nRead;
  }

 private:
  std::string sText_;
  std::size_t nAt_ = 0;
};

bool StandsBefore(const Correction& one, const Correction& other) {
  return std::tie(one.place.lLine, one.place.lColumn) <
         std::tie(other.place.lLine, other.place.lColumn);
}

// In the order of their places; of ENDs in one place, that of the inner block first.
std::vector<Correction> CorrectionsOf(const Suite& suite) {
  std::vector<Correction> corrections = FileNamesAsOnDisk(suite);
  const Findings findings = CheckSuite(suite);
  for (auto finding = findings.rbegin(); finding != findings.rend(); ++finding)
    if (finding->correction) corrections.push_back(*finding->correction);
  std::stable_sort(corrections.begin(), corrections.end(), StandsBefore);
  return corrections;
}

}  // namespace

Manuscript Mend(const std::string& sFile, Suite suite) {
  Manuscript manuscript(sFile);
  // It has characters that the code page lacks, of which a line end may be a half.
  if (IsUtf16(manuscript.Text())) return manuscript;
  manuscript.UnifyLineEnds();
  for (int n = 0; n < MostRounds; ++n) {
    suite.list = ReadCheckedList(suite.list.sName, std::make_unique<TextFile>(manuscript.Text()));
    if (!manuscript.Correct(CorrectionsOf(suite))) break;
    manuscript.PutInCodePage();  // what kept a text from being read as UTF-8 may be gone
  }
  return manuscript;
}

}  // namespace trelin
