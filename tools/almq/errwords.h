// The server's error texts as almq shows them: the system's own words
// instead of "system error N", paths without "/./", and the message code
// moved from the front to the end of the line. The server's bytes are not
// touched; this is only how almq tells them.
#pragma once

#include <string>

namespace alm {

std::string in_words(const std::string& serverText);
// The message code at the front of a server text, or "".
std::string message_code(const std::string& serverText);

}  // namespace alm
