#include "shared/arguments.h"

#include <algorithm>

namespace trelin {

bool Arguments::Next() {
  if (nNext_ < arguments_.size() && !bOptionsEnd_ && arguments_[nNext_] == "--") {
    bOptionsEnd_ = true;
    ++nNext_;
  }
  if (nNext_ == arguments_.size()) return false;
  pText_ = &arguments_[nNext_++];
  bOption_ = !bOptionsEnd_ && pText_->starts_with('-') && *pText_ != "-";
  return true;
}

std::string Arguments::TakeValue() {
  const std::string sName = Name();
  if (sName == Text() && nNext_ == arguments_.size())
    throw UsageError("The option \"" + sName + "\" needs a value.");
  std::string sValue = sName == Text() ? arguments_[nNext_++] : Text().substr(sName.size() + 1);
  if (sValue.empty()) throw UsageError("The value of the option \"" + sName + "\" is empty.");
  return sValue;
}

std::string PathFromArgument(std::string sArgument) {
  std::replace(sArgument.begin(), sArgument.end(), '/', '\\');
  return sArgument;
}

}  // namespace trelin
