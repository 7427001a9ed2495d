#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/main_menu.h"
#include "bench/bench_platform.h"

namespace trelin {

std::string MadePictureName(std::int32_t nProduct);  // as the made setup list has it

// Those of so many products: 32 by 32 pixels in 24 bits, a different one each.
void WritePictures(const BenchFolder& folder, std::int32_t nPictures);

// Opens the menu of the platform in use, calls use when it is shown and painted, and
// closes it.
void OpenMenu(const std::function<void(frmMainMenu&)>& use);

}  // namespace trelin
