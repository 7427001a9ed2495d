#include "testing/faults.h"

#include <algorithm>
#include <new>

#include "seam/platform_error.h"

namespace trelin {

bool Faults::Fails(const std::string& sOperation, const std::string& sArgument,
                   const std::string& sKinds) {
  if (!bCounts) return false;
  calls.push_back({sOperation, sArgument, sKinds, log.size()});
  if (nFailing == 0 || calls.size() < nFailing || sKinds.find(cKind) == std::string::npos)
    return false;
  if (calls.size() > nFailing) {
    const bool bSame = calls[nFailing - 1].sOperation == sOperation;
    if (reach == Reach::Nothing || (reach == Reach::ThatOperation && !bSame)) return false;
    nSecondFault = std::min(nSecondFault, log.size());
  }
  if (cKind == NoMemory) throw std::bad_alloc();
  if (cKind == Broken) throw PlatformError(sOperation, sArgument, "it is broken");
  return true;
}

}  // namespace trelin
