// Placeholder message entry point: every message comes out as the "NO MSG"
// fallback until the catalog-backed implementation replaces this file.
#include "messages/issuemsg.h"

#include <cstdio>

namespace alm {

char* VAissuemsgtobuf(char* msg, short* msglen, int, int, va_list) {
    int limit = (*msglen == -1) ? 4200 : 256;
    int n = std::snprintf(msg, static_cast<size_t>(limit), "NO MSG: !1,!2,!3,!4,!5");
    *msglen = static_cast<short>(n);
    return msg;
}

char* issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...) {
    va_list ap;
    va_start(ap, msgnum);
    VAissuemsgtobuf(msg, msglen, msgset, msgnum, ap);
    va_end(ap);
    return msg;
}

char* nc_issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...) {
    va_list ap;
    va_start(ap, msgnum);
    VAissuemsgtobuf(msg, msglen, msgset, msgnum, ap);
    va_end(ap);
    return msg;
}

void VAissuemsg(int opts, int msgset, int msgnum, va_list args) {
    char buf[4200];
    short len = -1;
    VAissuemsgtobuf(buf, &len, msgset, msgnum, args);
    std::fflush(stdout);
    std::FILE* out = (opts & 1) ? stderr : stdout;
    std::fprintf(out, "%s\n", buf);
}

void issuemsg(int opts, int msgset, int msgnum, ...) {
    va_list ap;
    va_start(ap, msgnum);
    VAissuemsg(opts, msgset, msgnum, ap);
    va_end(ap);
}

}  // namespace alm
