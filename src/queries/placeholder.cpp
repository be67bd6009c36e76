// Placeholder query handlers until the plan can be searched: no reply.
#include "queries/queries.h"

namespace alm {

void readerGetSchedules(Request&) {}
void readerGetJobs(Request&) {}
void readerGetSchJobDep(Request&) {}
void readerGetCpus(Request&) {}

}  // namespace alm
