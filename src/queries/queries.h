// The plan query handlers. Each takes the plan handle as its first argument,
// answers a malformed request (wrong argument count, missing argument) with
// no reply, and a handle that names no open plan with an empty reply.
#pragma once

#include <cstdint>

#include "protocol/request.h"
#include "protocol/sll.h"

namespace alm {

// Command 5: handle, workstation pattern, schedule pattern.
void readerGetSchedules(Request& req);
// Command 6: handle, workstation, schedule and job patterns.
void readerGetJobs(Request& req);
// Command 7: handle, workstation, schedule and job patterns.
void readerGetSchJobDep(Request& req);
// Command 8: handle, workstation pattern.
void readerGetCpus(Request& req);

// Record replies: type 0, the request's id, count records of 512 bytes
// (dataType 1) taken from list, which stays the caller's.
void readerGetCpusReturn(std::uint32_t id, std::int32_t count, sll* list);
void readerGetSchedulesReturn(std::uint32_t id, std::int32_t count, sll* list);
void readerGetJobsReturn(std::uint32_t id, std::int32_t count, sll* list);

}  // namespace alm
