// What a query request names: its string arguments by position, and the
// width of names in the plans' records.
#pragma once

#include <cstddef>

#include "protocol/request.h"

namespace alm {

// Takes n arguments when the request declares exactly n; false when it
// declares another number. An argument that the framing lost (an empty last
// one of four) is null.
bool queryArgs(const Request& req, const char** args, std::size_t n);

// Width of names in records of the most recently opened plan: 16, or 8
// after a version 0 plan.
short queryNameWidth();

}  // namespace alm
