#pragma once

#include <stdexcept>
#include <string>

namespace trelin {

// A failure of the platform (a file that does not open, a program that does
// not start), as opposed to an Error of the program's own. what() is a whole
// sentence for the user: what failed, with which path if there is one, and why.
class PlatformError : public std::runtime_error {
 public:
  // The sentence itself.
  explicit PlatformError(const std::string& sSentence) : std::runtime_error(sSentence) {}

  // 'Could not open the file "C:\Suite\TRELIN.CFG": the reason.' sOperation: what
  // was tried, as a verb phrase. sPath: the file or command line, as the user
  // writes it. sReason: mostly the system's own words.
  PlatformError(const std::string& sOperation, const std::string& sPath,
                const std::string& sReason);
};

}  // namespace trelin
