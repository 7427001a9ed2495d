#pragma once

#include <gtest/gtest.h>

#include "testing/fake_platform.h"

namespace trelin {

// A test of the program on a platform of its own.
class ProgramTest : public ::testing::Test, protected FakePlatform {};

}  // namespace trelin
