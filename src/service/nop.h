// The liveness probe and the exit request.
#pragma once

#include <cstdint>

#include "protocol/request.h"

namespace alm {

// Command 0: answers with an empty reply carrying the request's id.
void readerNOP(Request& req);
void readerNOPReturn(std::uint32_t id);

// Command 1: ends the process with status 0, with no reply and without
// closing the open plans. The handler only marks the request; the request
// loop carries the exit out once the handler has returned.
void readerExit(Request& req);

}  // namespace alm
