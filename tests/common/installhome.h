// A scheduler home laid out as the programs find it when installed.
#pragma once

#include <string>
#include <vector>

namespace alm::test {

// Fills the existing directory home with bin/ holding copies of the named
// programs built in this tree (copies, so that each finds this home two
// levels above itself) and catalog/C holding the built message catalogs.
// False when anything could not be made or copied.
bool install_home(const std::string& home, const std::vector<std::string>& programs);

}  // namespace alm::test
