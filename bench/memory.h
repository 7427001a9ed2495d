#pragma once

namespace trelin {

// How far the process grows at most from here on.
class MemoryGrowth {
 public:
  MemoryGrowth();
  double Bytes() const;

 private:
  double before_;
};

}  // namespace trelin
