#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace trelin {

// A command line that does not say what to do; what() tells the user.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The arguments of a program for a terminal, one after the other: "--name",
// "--name VALUE", "--name=VALUE", or else a file. "-" is a file, and so is all that
// follows "--".
class Arguments {
 public:
  explicit Arguments(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  // Goes on to the next one; false behind the last.
  bool Next();

  bool IsOption() const { return bOption_; }
  const std::string& Text() const { return *pText_; }
  std::string Name() const { return Text().substr(0, Text().find('=')); }  // of an option

  // The value of the option. Throws UsageError when there is none, or an empty one.
  std::string TakeValue();

 private:
  const std::vector<std::string>& arguments_;
  const std::string* pText_ = nullptr;
  std::size_t nNext_ = 0;
  bool bOption_ = false;
  bool bOptionsEnd_ = false;
};

// A path of the program, of one with slashes.
std::string PathFromArgument(std::string sArgument);

}  // namespace trelin
