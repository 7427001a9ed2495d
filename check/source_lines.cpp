#include "check/source_lines.h"

#include <cstddef>
#include <utility>

#include "seam/platform_error.h"
#include "shared/read_file.h"
#include "suite/line_reader.h"

namespace trelin {

void SourceLines::Add(std::string_view sLine) {
  text_.insert(text_.end(), sLine.begin(), sLine.end());
  ends_.push_back(static_cast<std::uint32_t>(text_.size()));
  text_.push_back('\n');
}

std::string_view SourceLines::Line(std::int32_t lLine) const {
  if (lLine < 1 || lLine > Count()) return {};
  const auto nLine = static_cast<std::size_t>(lLine);
  const std::size_t nBegin = nLine == 1 ? 0 : ends_[nLine - 2] + 1;
  return Text().substr(nBegin, ends_[nLine - 1] - nBegin);
}

SourceLines ReadSourceLines(const std::string& sName, std::unique_ptr<InputFile> file) {
  SourceLines lines;
  LineReader reader;
  reader.Open(std::move(file));
  for (std::string_view sLine; reader.NextLine(sLine);) {
    lines.Add(sLine);
    if (lines.Text().size() > MaxFileBytes)
      throw PlatformError("read the file", sName, "it has more than 64 MB");
  }
  return lines;
}

}  // namespace trelin
