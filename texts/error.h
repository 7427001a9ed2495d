#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace trelin {

// An error of the program's own. The number is 5000, 5001 or 5002 and does not
// classify the failure by itself; the source names the class and operation
// that raised it, or the setup list; the description is a whole text for the
// user.
class Error : public std::exception {
 public:
  Error(std::int32_t lNumber, std::string sSource, std::string sDescription);

  std::int32_t Number() const { return lNumber_; }
  const std::string& Source() const { return sSource_; }
  const std::string& Description() const { return sDescription_; }
  const char* what() const noexcept override { return sDescription_.c_str(); }

 private:
  std::int32_t lNumber_;
  std::string sSource_;
  std::string sDescription_;
};

// What the outermost level shows of an error of whatever type.
struct ErrorReport {
  std::string sSource;
  std::string sDescription;
};

// The error in flight. To be called from a handler (a catch block) only.
ErrorReport CurrentError();

// Shows the error in flight in a message box: its description, the
// information icon, the title "Error at " followed by its source. Never
// throws.
void ShowError();

// The same for an error that ends the program: the critical icon, the source
// as the title.
void ShowFatalError();

}  // namespace trelin
