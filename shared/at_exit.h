#pragma once

#include <utility>

namespace trelin {

// Calls a function when it goes out of scope, also by an exception.
template <class Function>
class AtExit {
 public:
  explicit AtExit(Function function) : function_(std::move(function)) {}
  ~AtExit() { function_(); }
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;

 private:
  Function function_;
};

}  // namespace trelin
