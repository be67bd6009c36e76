// Dispatch of a request to the handler of its command number.
#pragma once

#include <cstdint>

#include "protocol/request.h"

namespace alm {

inline constexpr std::uint32_t numProcs = 9;

// Indexed by the request's type: 0 no-operation, 1 exit, 2 open plan,
// 3 close plan, 4 archived plans, 5 schedules, 6 jobs, 7 dependencies,
// 8 workstations.
extern const readerHandler _callprocs[numProcs];

// Calls the handler of req.type; an unknown type does nothing.
void readerLookupAndCall(Request& req);

}  // namespace alm
