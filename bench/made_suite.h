#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace trelin {

// The setup list that the benchmark makes: nProducts products with what a product has,
// every second one with two prerequisites, about 19 lines and 550 bytes each. Lines end
// with CR LF, and trelin-check finds nothing.
std::string MadeSetupList(std::int32_t nProducts);

// How many bytes the values of that list have, those of the keys without the
// names of the blocks.
std::size_t MadeValueBytes(std::int32_t nProducts);

// The same keys and values as an INI file, a section a block.
std::string MadeIniFile(std::int32_t nProducts);

// A registry file with an installation record of each of those products, whose
// check files are in sFolder, which ends in a backslash.
std::string MadeRegistryFile(std::int32_t nProducts, const std::string& sFolder);

std::string MadeProductCode(std::int32_t nProduct);
std::string MadeCheckFile(std::int32_t nProduct);  // its name

}  // namespace trelin
