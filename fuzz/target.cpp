#include "fuzz/target.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace trelin {

void Check(bool bHolds, const char* sInvariant) {
  if (bHolds) return;
  std::cerr << "BROKEN: " << sInvariant << std::endl;
  std::abort();
}

void CheckEqual(const std::string& sExpected, const std::string& sFound, const char* sWhat) {
  if (sExpected == sFound) return;
  std::cerr << "BROKEN: " << sWhat << "\nexpected: " << sExpected.substr(0, 2000)
            << "\nfound:    " << sFound.substr(0, 2000) << std::endl;
  std::abort();
}

}  // namespace trelin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  trelin::Try({reinterpret_cast<const char*>(pData), nSize});
  return 0;
}
