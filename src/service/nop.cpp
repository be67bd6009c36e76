// The no-operation and exit requests.
#include "service/nop.h"

#include "protocol/write.h"

namespace alm {

void readerNOP(Request& req) { readerNOPReturn(req.id); }

void readerNOPReturn(std::uint32_t id) {
    Request reply;
    reply.type = 0;
    reply.id = id;
    reply.numData = 0;
    reply.dataType = 0;
    readerWrite(reply);
}

void readerExit(Request& req) { req.exitRequested = true; }

}  // namespace alm
