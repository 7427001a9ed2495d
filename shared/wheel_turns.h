#pragma once

namespace trelin {

// Counts whole notches of the wheel. A fine wheel turns by parts of one, which add up.
class WheelTurns {
 public:
  // nDelta: in the unit of every system, 120 to the notch; positive away from the user.
  int NotchesOf(int nDelta) {
    constexpr int Notch = 120;
    nRest_ += nDelta;
    const int nNotches = nRest_ / Notch;
    nRest_ %= Notch;
    return nNotches;
  }

 private:
  int nRest_ = 0;
};

}  // namespace trelin
