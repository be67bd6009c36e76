// Frames as hexadecimal lines: offset, sixteen bytes, their printable text.
#pragma once

#include <string>
#include <string_view>

namespace alm {

void hex_dump(std::string_view bytes, std::string& out);

}  // namespace alm
