#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <chrono>
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

}  // namespace end_to_end
