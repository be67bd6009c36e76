// Whole files read and written at once.
#pragma once

#include <string>
#include <string_view>

namespace alm::test {

// The bytes of a file; empty when it cannot be read.
std::string read_file(const std::string& path);
// Replaces the file's contents; throws std::runtime_error when it cannot.
void write_file(const std::string& path, std::string_view bytes);

}  // namespace alm::test
