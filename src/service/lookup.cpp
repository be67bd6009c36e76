// The dispatch table from command numbers to request handlers.
#include "service/lookup.h"

#include "queries/queries.h"
#include "service/files.h"
#include "service/nop.h"

namespace alm {

const readerHandler _callprocs[numProcs] = {
    readerNOP,
    readerExit,
    readerOpenAlmanack,
    readerCloseAlmanack,
    readerGetAlmanackLogs,
    readerGetSchedules,
    readerGetJobs,
    readerGetSchJobDep,
    readerGetCpus,
};

void readerLookupAndCall(Request& req) {
    if (req.type < numProcs) _callprocs[req.type](req);
}

}  // namespace alm
