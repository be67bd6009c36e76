// Numbered messages: every text meant for a person is a catalog message
// issued with option bits, a message set, a message number and pairs of
// (type code, value) ended by MSG_END.
#pragma once

#include <cstdarg>

namespace alm {

// Argument type codes.
enum MsgArgCode : int {
    MSG_STR = 0,       // char*, trimmed; a negative -n is a fixed field of n chars
    MSG_INT = 1,       // int, "%d"
    MSG_LONGP = 2,     // long*, "%li"
    MSG_SKIP = 3,      // any word, empty text
    MSG_ERRNO = 4,     // int errno, strerror text
    MSG_ERRNO2 = 5,
    MSG_FILENUM = 6,   // consumed without a placeholder
    MSG_DBSTAT = 7,
    MSG_DATE = 8,      // date value, c_convert_date
    MSG_INT6 = 9,      // int, "%6d"
    MSG_LONGP11 = 10,  // long*, "%11li"
    MSG_JOBNUM = 11,   // job number int
    MSG_HHMM = 12,     // int HHMM, "%d:%02d"
    MSG_IPADDR = 13,   // unsigned IPv4 address
    MSG_END = 32767,
};

// The shorts of the message interface are passed as int so that the
// variadic lists that follow them are well defined.
void issuemsg(int opts, int msgset, int msgnum, ...);
void VAissuemsg(int opts, int msgset, int msgnum, va_list args);
// *msglen == -1 on entry allows up to 4200 bytes, any other value 256; on
// return it holds the text's length.
char* issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...);
char* VAissuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, va_list args);
char* nc_issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...);

}  // namespace alm
