#include "check/revision_order.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace trelin {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Takes the leading part off: a number, or a single other character.
std::string_view TakePart(std::string_view& sText) {
  std::size_t nLength = sText.empty() ? 0 : 1;
  if (!sText.empty() && IsDigit(sText.front()))
    while (nLength < sText.size() && IsDigit(sText[nLength])) ++nLength;
  const std::string_view sPart = sText.substr(0, nLength);
  sText.remove_prefix(nLength);
  return sPart;
}

bool IsNumber(std::string_view sPart) { return !sPart.empty() && IsDigit(sPart.front()); }

std::string_view WithoutZeros(std::string_view sNumber) {
  return sNumber.substr(std::min(sNumber.find_first_not_of('0'), sNumber.size()));
}

std::weak_ordering Order(int nOrder) {
  return nOrder < 0   ? std::weak_ordering::less
         : nOrder > 0 ? std::weak_ordering::greater
                      : std::weak_ordering::equivalent;
}

std::weak_ordering CompareParts(std::string_view sOne, std::string_view sOther) {
  if (!IsNumber(sOne) || !IsNumber(sOther)) return Order(sOne.compare(sOther));
  const std::string_view sValue = WithoutZeros(sOne);
  const std::string_view sOtherValue = WithoutZeros(sOther);
  if (sValue.size() != sOtherValue.size()) return sValue.size() <=> sOtherValue.size();
  return Order(sValue.compare(sOtherValue));
}

// The number of digits of each number in the text.
std::vector<std::size_t> Widths(std::string_view sText) {
  std::vector<std::size_t> widths;
  while (!sText.empty()) {
    const std::string_view sPart = TakePart(sText);
    if (IsNumber(sPart)) widths.push_back(sPart.size());
  }
  return widths;
}

std::string Widened(std::string_view sText, const std::vector<std::size_t>& widths) {
  std::string sWidened;
  std::size_t nNumber = 0;
  while (!sText.empty()) {
    const std::string_view sPart = TakePart(sText);
    if (IsNumber(sPart) && nNumber < widths.size() && widths[nNumber] > sPart.size())
      sWidened.append(widths[nNumber] - sPart.size(), '0');
    if (IsNumber(sPart)) ++nNumber;
    sWidened += sPart;
  }
  return sWidened;
}

}  // namespace

std::weak_ordering CompareByNumbers(std::string_view sOne, std::string_view sOther) {
  while (!sOne.empty() && !sOther.empty()) {
    const std::weak_ordering order = CompareParts(TakePart(sOne), TakePart(sOther));
    if (std::is_neq(order)) return order;
  }
  return sOne.size() <=> sOther.size();
}

std::pair<std::string, std::string> SortableSpelling(std::string_view sOne,
                                                     std::string_view sOther) {
  return {Widened(sOne, Widths(sOther)), Widened(sOther, Widths(sOne))};
}

}  // namespace trelin
