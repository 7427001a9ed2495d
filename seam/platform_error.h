#pragma once

#include <stdexcept>
#include <string>

namespace trelin {

// A failure of the platform (a file that does not open, a program that does
// not start), as opposed to an Error of the program's own. what() is a whole
// sentence for the user: what failed, with which path, and the system's reason.
class PlatformError : public std::runtime_error {
 public:
  // sOperation: what was tried, as a verb phrase ("open the file").
  // sPath: the file or command line; sReason: the system's own words.
  PlatformError(const std::string& sOperation, const std::string& sPath,
                const std::string& sReason);

  const std::string& Operation() const { return sOperation_; }
  const std::string& Path() const { return sPath_; }
  const std::string& Reason() const { return sReason_; }

 private:
  std::string sOperation_;
  std::string sPath_;
  std::string sReason_;
};

}  // namespace trelin
