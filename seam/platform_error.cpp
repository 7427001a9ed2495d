#include "seam/platform_error.h"

namespace trelin {

PlatformError::PlatformError(const std::string& sOperation, const std::string& sPath,
                             const std::string& sReason)
    : std::runtime_error("Could not " + sOperation + " \"" + sPath + "\": " + sReason + ".") {}

}  // namespace trelin
