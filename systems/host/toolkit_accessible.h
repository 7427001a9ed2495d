#pragma once

namespace trelin {

// Has boxes tell accessibility clients their roles and states. To be called
// once, before there are any.
void InstallAccessibility();

}  // namespace trelin
