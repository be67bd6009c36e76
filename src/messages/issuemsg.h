// Numbered messages: every text meant for a person is a catalog message
// issued with option bits, a message set, a message number and pairs of
// (type code, value) ended by MSG_END.
#pragma once

#include <cstdarg>
#include <cstdio>

namespace alm {

// Argument type codes.
enum MsgArgCode : int {
    MSG_STR = 0,       // char*, trimmed; a negative -n is a fixed field of n chars
    MSG_INT = 1,       // int, "%d"
    MSG_LONGP = 2,     // long*, "%li"
    MSG_SKIP = 3,      // any word (pass a long or a pointer), empty text
    MSG_ERRNO = 4,     // int errno, strerror text
    MSG_ERRNO2 = 5,
    MSG_FILENUM = 6,   // one word (long or pointer) consumed without a placeholder
    MSG_DBSTAT = 7,    // likewise; as the first pair, an empty line follows the message
    MSG_DATE = 8,      // int date epoch, c_convert_date
    MSG_INT6 = 9,      // int, "%6d"
    MSG_LONGP11 = 10,  // long*, "%11li"
    MSG_JOBNUM = 11,   // job number int
    MSG_HHMM = 12,     // int HHMM, "%d:%02d"
    MSG_IPADDR = 13,   // unsigned IPv4 address
    MSG_END = 32767,
};

// Option bits.
enum MsgOpt : int {
    IM_STDERR = 0x0001,
    IM_FATAL = 0x0002,
    IM_FATAL2 = 0x0004,
    IM_TIME = 0x0010,
    IM_BELL = 0x0020,
    IM_BOX = 0x0040,
    IM_STARBOX = 0x00C0,  // both bits
    IM_SYSLOG = 0x0100,
    IM_SYSLOG2 = 0x0200,
    IM_SYSLOG_FORCE = 0x0400,
    IM_WARN = 0x0800,
    IM_ERROR = 0x1000,
};

inline constexpr int IM_BUFSIZE = 4200;
inline constexpr int IM_SHORTBUF = 256;
inline constexpr int IM_MAX_ARGS = 5;

// Facility flags: bit 0 is set at creation; the others ask exit_cleanly for
// its closing lines and for a core image.
inline constexpr int IM_FLAG_CORE = 0x20000;
inline constexpr int IM_FLAG_BYE = 0x40000;
inline constexpr int IM_FLAG_CPU = 0x80000;

// A registered argument formatter: writes at most room bytes (with the NUL)
// for the value it takes from args and returns the length written.
using MsgTypeFormatter = int (*)(char* out, int room, va_list* args);

// The facility's per-process state, created on first use.
struct TPCATtype {
    int flags = 0;
    std::FILE* fdconsole = nullptr;
    std::FILE* fdconslog = nullptr;
    int console_wid = 0;
    int stdout_wid = 0;
    short date_fmt = 0;
    short level = 0;
    long cats[13] = {};
    char curr_session[64] = {};
    char default_session[64] = {};
    const char* progname = nullptr;
    char from_info[64] = {};
    short syslog = -1;
    short default_set = 0;
    short numUserTypes = 0;
    MsgTypeFormatter* uts = nullptr;
};

// One typed argument: its type code and its text.
struct MsgArgType {
    short argType;
    char* buffer;
};

// A message kept for later issue: where its text comes from, its arguments
// and the text to show when the catalog has none.
struct MsgErrorType {
    char catname[1025];
    int msgset;
    int msgnum;
    int errtype;
    MsgArgType args[6];
    char deftext[256];
};

// The state record, created (and the locale set) on first call.
TPCATtype* issuemsg_state();

// The shorts of the message interface are passed as int so that the
// variadic lists that follow them are well defined.
void issuemsg(int opts, int msgset, int msgnum, ...);
void VAissuemsg(int opts, int msgset, int msgnum, va_list args);
// *msglen == -1 on entry allows up to 4200 bytes, any other value 256; on
// return it holds the text's length.
char* issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...);
char* VAissuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, va_list args);
// As issuemsgtobuf, leaving the text in UTF-8.
char* nc_issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...);

// Writes an already formatted text with the head, wrapping, box, system-log
// copy and fatal exit that opts ask for; a non-zero buflen cuts the text.
void issuebuf(int opts, const char* buf, int buflen);

// Registers a formatter and returns its type code, 1000 plus its index.
int issuemsg_add_type(MsgTypeFormatter fmt);

short im_fmt_jobnum(int jobnum, char* out);
short im_fmt_ip_addr(unsigned int addr, char* out);

// Writes the closing lines that the flags ask for and ends the process.
[[noreturn]] void exit_cleanly(int opts);
// Called with -1 and the text of a fatal message before exit_cleanly.
void issuemsg_set_shutdown(void (*fn)(int, const char*));

}  // namespace alm
