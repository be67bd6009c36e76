// The plan query handlers. Each takes the plan handle as its first argument
// and answers a malformed request (wrong argument count) with no reply.
#pragma once

#include "service/request.h"

namespace alm {

// Command 5: handle, workstation pattern, schedule pattern.
void readerGetSchedules(Request& req);
// Command 6: handle, workstation, schedule and job patterns.
void readerGetJobs(Request& req);
// Command 7: handle, workstation, schedule and job patterns.
void readerGetSchJobDep(Request& req);
// Command 8: handle, workstation pattern.
void readerGetCpus(Request& req);

}  // namespace alm
