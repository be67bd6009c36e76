// Open plans and the listing of archived plans.
#pragma once

#include "service/request.h"

namespace alm {

// Command 2: exactly one argument, the plan file path.
void readerOpenAlmanack(Request& req);
// Command 3: exactly one argument, the plan handle.
void readerCloseAlmanack(Request& req);
// Command 4: arguments ignored.
void readerGetAlmanackLogs(Request& req);
// Closes every plan still open; called once after the request loop ends.
void readerCloseAllAlmanack();

}  // namespace alm
