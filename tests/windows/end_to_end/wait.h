#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <string>

// What another process does takes time: it is asked for again and again.
namespace end_to_end {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds LongestWait{10};

// Whether the condition became true in time.
template <class Condition>
bool Within(Clock::duration limit, Condition condition) {
  const Clock::time_point end = Clock::now() + limit;
  while (!condition()) {
    if (Clock::now() > end) return false;
    Sleep(5);
  }
  return true;
}

template <class Value, class Read>
void ExpectSoon(const Value& expected, const std::string& sWhat, Read read) {
  Within(LongestWait, [&] { return read() == expected; });
  EXPECT_EQ(expected, read()) << sWhat;
}

// Wine 8 fails now and then to start a program, with this error: then it is
// tried again.
template <class Create>
void StartProgram(const std::string& sName, Create create) {
  for (int nTry = 1; !create(); ++nTry) {
    const DWORD error = GetLastError();
    if (error != ERROR_INTERNAL_ERROR || nTry == 3)
      throw std::runtime_error(sName + " does not start: error " + std::to_string(error));
  }
}

}  // namespace end_to_end
