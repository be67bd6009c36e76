// The requests that open and close plans, and the listing of archived plans.
#pragma once

#include <cstdint>

#include "protocol/request.h"
#include "protocol/sll.h"

namespace alm {

// Command 2: exactly one argument, the plan file path.
void readerOpenAlmanack(Request& req);
// Command 3: exactly one argument, the plan handle.
void readerCloseAlmanack(Request& req);
// Command 4: arguments ignored.
void readerGetAlmanackLogs(Request& req);
// Closes every plan still open; called once after the request loop ends.
void readerCloseAllAlmanack();

// Nine strings: code, error text, handle, yymmdd date, day start, this
// workstation, master workstation, job fence, plan version.
void readerOpenAlmanackReturn(std::uint32_t id, sll* items);
// 24 bytes: no body, every count zero.
void readerCloseAlmanackReturn(std::uint32_t id);
// One full path per item.
void readerGetAlmanackLogsReturn(std::uint32_t id, std::uint32_t count, sll* items);

}  // namespace alm
