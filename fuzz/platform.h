#pragma once

#include "testing/fake_platform.h"

namespace trelin {

// The platform that all inputs are tried on, made once: without files and messages, and
// with an empty registry.
FakePlatform& CleanPlatform();

}  // namespace trelin
