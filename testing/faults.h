#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace trelin {

// The calls that a platform of the tests is asked, which of them fails, and
// how.
class Faults {
 public:
  // The kinds of failure.
  static constexpr char Result = 'R';    // the result that means failure
  static constexpr char Broken = 'B';    // a PlatformError, or RegistryUnusable
  static constexpr char NoMemory = 'M';  // std::bad_alloc

  // What fails after the first call that does.
  enum class Reach { Nothing, ThatOperation, Everything };

  struct Call {
    std::string sOperation, sArgument;
    std::string sKinds;   // of failure that its header allows
    std::size_t nLogged;  // how much the log held by then
  };

  // Whether the call that is being made fails with its result. Throws when it
  // fails in another way.
  bool Fails(const std::string& sOperation, const std::string& sArgument,
             const std::string& sKinds);

  bool bCounts = true;       // else nothing fails, and no call is kept
  std::size_t nFailing = 0;  // the first call to fail, from 1; 0: none
  char cKind = Result;
  Reach reach = Reach::Nothing;

  std::vector<Call> calls;
  std::string log;                               // what the user has seen and heard, in lines
  std::size_t nSecondFault = std::string::npos;  // how much the log held by then
};

}  // namespace trelin
