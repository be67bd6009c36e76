// Numbered messages: formatting a catalog message with its typed arguments and issuing it.
#include "messages/issuemsg.h"

#include <syslog.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "messages/codeset.h"
#include "messages/msgcat.h"
#include "messages/msgord.h"
#include "messages/msgstream.h"
#include "util/dateutil.h"
#include "util/stdfuncs.h"

namespace alm {

namespace {

constexpr int LANG_MAX = 32;
constexpr int IM_MAX_WIDTH = IM_BUFSIZE - 1;
constexpr int IM_ERROR_BITS = 0x0002 | 0x0040 | 0x0080 | 0x1000;
constexpr int IM_SYSLOG_ERROR_BITS = 0x10C2;

std::unique_ptr<TPCATtype> g_state;
std::vector<MsgTypeFormatter> g_uts;
int g_debug = 0;
int g_open_errno[NUM_PRODUCTS] = {};
void (*g_shutdown)(int, const char*) = nullptr;

bool is_space(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

void set_locale_from_env() {
    char loc[LANG_MAX + 1];
    ils_os_lang_name(loc, sizeof loc);
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_COLLATE, loc);
    std::setlocale(LC_CTYPE, loc);
    std::setlocale(LC_TIME, loc);
    std::setlocale(LC_MESSAGES, loc);
}

void create_state() {
    g_state = std::make_unique<TPCATtype>();
    TPCATtype* st = g_state.get();
    st->flags = 1;
    st->console_wid = 64;
    st->stdout_wid = 78;
    st->level = 0;
    st->syslog = -1;
    st->default_set = 0;

    set_locale_from_env();
    ils_init();
    const char* dbg = std::getenv("ISSUEMSGDEBUG");
    g_debug = dbg != nullptr ? static_cast<int>(std::strtol(dbg, nullptr, 10)) : 0;
    g_debug |= 0x0180;

    // The date style is kept in the product catalogs as a number.
    if (st->cats[1] == 0) {
        st->cats[1] = open_catalog(1);
        if (st->cats[1] == NIM_CATD_ERR) g_open_errno[1] = errno;
    }
    const char* fmt = nim_catgets(st->cats[1], 50, 35, "0");
    st->date_fmt = static_cast<short>(std::atoi(fmt));
}

TPCATtype* state() {
    if (!g_state) create_state();
    return g_state.get();
}

void system_lang(char* lang) {
    char raw[LANG_MAX + 1];
    ils_os_lang_name(raw, sizeof raw);
    ils_canonical_lang(raw, lang, LANG_MAX + 1);
    lang[LANG_MAX] = '\0';
}

// Copies at most room-1 bytes and terminates; returns the bytes copied.
int copy_text(char* dst, int room, const char* src, std::size_t len) {
    if (room <= 0) return 0;
    std::size_t n = std::min(len, static_cast<std::size_t>(room - 1));
    std::memcpy(dst, src, n);
    dst[n] = '\0';
    return static_cast<int>(n);
}

int clamp_print(int ret, int room) {
    if (ret < 0 || room <= 0) return 0;
    return std::min(ret, room - 1);
}

// A string argument (type 0, or -n for an n-byte field) trimmed of white
// space at both ends, copied into dst; its length. An untrimmed string of
// type 0 is used in place instead: slot.buffer points at it and -1 comes back.
int string_arg(int type, const char* s, char* dst, int room, MsgArgType& slot) {
    if (s == nullptr) return copy_text(dst, room, "", 0);
    std::size_t n = 0;
    if (type == MSG_STR) {
        n = std::strlen(s);
    } else {
        const std::int64_t width = -static_cast<std::int64_t>(type);
        n = ::strnlen(s, static_cast<std::size_t>(width));
    }
    std::size_t b = 0;
    while (b < n && is_space(s[b])) ++b;
    std::size_t e = n;
    while (e > b && is_space(s[e - 1])) --e;
    if (type == MSG_STR && b == 0 && e == n) {
        slot.buffer = const_cast<char*>(s);
        return -1;
    }
    return copy_text(dst, room, s + b, e - b);
}

// Text that fmt writes into a scratch buffer, copied into dst.
template <class Fmt>
int formatted_arg(Fmt fmt, char* dst, int room) {
    char tmp[32];
    const short n = fmt(tmp);
    return copy_text(dst, room, tmp, static_cast<std::size_t>(n));
}

// Text of a library call that fills at most room bytes of dst.
int filled_arg(char* dst, int room) {
    if (room <= 0) return 0;
    dst[room - 1] = '\0';
    return static_cast<int>(std::strlen(dst));
}

// Converts the value of one non-string argument of type into dst; its
// length. terminated is cleared for hhmm, whose text keeps no NUL.
int value_arg(int type, va_list* ap, char* dst, int room, bool& terminated) {
    const auto print = [&](const char* f, auto v) {
        return clamp_print(std::snprintf(dst, static_cast<std::size_t>(room), f, v), room);
    };
    switch (type) {
        case MSG_INT: return print("%d", va_arg(*ap, int));
        case MSG_INT6: return print("%6d", va_arg(*ap, int));
        case MSG_LONGP:
        case MSG_LONGP11: {
            const long* v = va_arg(*ap, const long*);
            if (v == nullptr) return copy_text(dst, room, "", 0);
            return print(type == MSG_LONGP ? "%li" : "%11li", *v);
        }
        case MSG_SKIP:
            (void)va_arg(*ap, long);
            return copy_text(dst, room, "", 0);
        case MSG_ERRNO:
        case MSG_ERRNO2: {
            const char* e = std::strerror(va_arg(*ap, int));
            if (room > 0) ils_to_utf8(nullptr, e, -1, dst, room);
            return filled_arg(dst, room);
        }
        case MSG_DATE: {
            const int e = va_arg(*ap, int);
            if (room > 0) {
                dst[0] = '\0';
                c_convert_date(e, dst, room, state()->date_fmt);
            }
            return filled_arg(dst, room);
        }
        case MSG_JOBNUM: {
            const int v = va_arg(*ap, int);
            return formatted_arg([v](char* out) { return im_fmt_jobnum(v, out); }, dst, room);
        }
        case MSG_HHMM: {
            const int v = va_arg(*ap, int);
            // No room is kept for the NUL: a following argument runs on
            // from here, and this placeholder's text with it.
            terminated = false;
            return clamp_print(std::snprintf(dst, static_cast<std::size_t>(room), "%d:%02d", v / 100, v % 100), room);
        }
        case MSG_IPADDR: {
            const unsigned int v = va_arg(*ap, unsigned int);
            return formatted_arg([v](char* out) { return im_fmt_ip_addr(v, out); }, dst, room);
        }
        default: return 0;
    }
}

// Reads up to five (type, value) pairs into placeholder texts laid one
// after another in work (IM_BUFSIZE + 1 bytes, zeroed). The sixth slot is
// the end of the used area: an empty text.
void collect_args(va_list args, char* work, MsgArgType slots[6]) {
    va_list ap;
    va_copy(ap, args);
    int pos = 0;
    int k = 0;
    while (k < IM_MAX_ARGS) {
        const int type = va_arg(ap, int);
        if (type == MSG_FILENUM || type == MSG_DBSTAT) {
            (void)va_arg(ap, long);
            continue;
        }
        // Registered types (1000 and up) end the list like any unknown type.
        if (type > MSG_IPADDR) break;

        char* dst = work + pos;
        const int room = IM_BUFSIZE - pos;
        bool terminated = true;
        slots[k].argType = static_cast<short>(type);
        slots[k].buffer = dst;
        const int len = type <= MSG_STR ? string_arg(type, va_arg(ap, const char*), dst, room, slots[k])
                                        : value_arg(type, &ap, dst, room, terminated);
        if (len >= 0 && room > 0) pos += len + (terminated ? 1 : 0);
        ++k;
    }
    va_end(ap);
    for (; k < 6; ++k) {
        slots[k].argType = static_cast<short>(MSG_END);
        slots[k].buffer = work + pos;
    }
}

// The text of the message, or nullptr with the reason appended to reason.
const char* catalog_text(int product, int cset, int msg, std::string& reason) {
    TPCATtype* st = state();
    char tmp[128];
    if (product < 0 || product >= NUM_PRODUCTS) {
        reason = " [product > MAX] ";
        return nullptr;
    }
    if (st->cats[product] == 0) {
        st->cats[product] = open_catalog(product);
        if (st->cats[product] == NIM_CATD_ERR) g_open_errno[product] = errno;
    }
    if (st->cats[product] == NIM_CATD_ERR) {
        std::snprintf(tmp, sizeof tmp, " open failed %d ", g_open_errno[product]);
        reason = tmp;
        return nullptr;
    }
    const char* text = nim_catgets(st->cats[product], cset, msg, nullptr);
    if (text != nullptr) return text;

    char lang[LANG_MAX + 1];
    system_lang(lang);
    if (std::strcmp(lang, "C") == 0) return nullptr;
    char path[QUAL_PATH_MAX + 1];
    const char* stem = product_stem(product);
    nim_catd h = home_catalog_path(path, "C", stem) ? catopen2(path, 0, nullptr, "C") : NIM_CATD_ERR;
    if (h == 0 || h == NIM_CATD_ERR) {
        std::fprintf(msg_stderr(), "catopen on %s error: %s\n", path, std::strerror(errno));
        return nullptr;
    }
    text = nim_catgets(h, cset, msg, nullptr);
    if (text == nullptr) {
        // Unlike the other two reasons this one has no leading blank.
        std::snprintf(tmp, sizeof tmp, "catgets failed %d ", errno);
        reason = tmp;
    }
    // The text stays valid: closing only releases the slot for later reuse.
    nim_catclose(h);
    return text;
}

// Where a message lives: the product slot, its catalog set and the number
// within that set.
struct CatalogPlace {
    int product;
    int cset;
    int msg;
};

CatalogPlace place_of(int msgset, int msgnum) {
    if (msgset == 0) msgset = state()->default_set;
    int product = msgset / 1000;
    if (product == 0) {
        msgset += 2000;
        product = msgset / 1000;
    }
    if (msgset % 1000 == 0) return {product, msgnum / 100, msgnum % 100};
    return {product, msgset % 1000, msgnum};
}

// Copies text into out (at most lim bytes and a NUL), with "!1".."!6" the
// placeholder texts, "~!" a literal "!" and "!" before any other character
// that character alone. Returns the length.
int fill_placeholders(const char* text, char* out, int lim, const MsgArgType slots[6]) {
    int n = 0;
    for (const char* p = text; *p != '\0' && n < lim;) {
        if (p[0] == '~' && p[1] == '!') {
            out[n++] = '!';
            p += 2;
        } else if (p[0] == '!') {
            if (p[1] >= '1' && p[1] <= '6') {
                for (const char* a = slots[p[1] - '1'].buffer; *a != '\0' && n < lim; ++a) out[n++] = *a;
                p += 2;
            } else if (p[1] == '\0') {
                ++p;
            } else {
                out[n++] = p[1];
                p += 2;
            }
        } else {
            out[n++] = *p++;
        }
    }
    out[n] = '\0';
    return n;
}

// Fetches the message, fills its placeholders and adds the code; the text
// stays in UTF-8. Returns its length.
int do_catread(int msgset, int msgnum, char* out, int size, MsgArgType slots[6]) {
    state();
    if (size <= 0) return 0;
    const CatalogPlace at = place_of(msgset, msgnum);

    std::string reason;
    const char* text = catalog_text(at.product, at.cset, at.msg, reason);
    std::string fallback;
    if (text == nullptr) {
        fallback = "NO MSG: !1,!2,!3,!4,!5" + reason;
        text = fallback.c_str();
    }
    auto utf = std::make_unique<char[]>(IM_BUFSIZE);
    ils_to_utf8(nullptr, text, -1, utf.get(), IM_BUFSIZE);
    utf[IM_BUFSIZE - 1] = '\0';

    int n = fill_placeholders(utf.get(), out, size - 1, slots);
    if ((n == 0 || out[n - 1] != '#') && size - n > 10) {
        auto body = std::make_unique<char[]>(static_cast<std::size_t>(n) + 1);
        std::memcpy(body.get(), out, static_cast<std::size_t>(n) + 1);
        int r = std::snprintf(out, static_cast<std::size_t>(size), "%s%04d%04d  %s", "QFR", at.product * 1000 + at.cset,
                              at.msg, body.get());
        n = clamp_print(r, size);
    } else if (n > 0) {
        out[--n] = '\0';
    }
    return n;
}

char* format_message(char* msg, short* msglen, int msgset, int msgnum, va_list args) {
    state();
    const int limit = *msglen == -1 ? IM_BUFSIZE : IM_SHORTBUF;
    msg[0] = '\0';
    auto work = std::make_unique<char[]>(IM_BUFSIZE + 1);
    MsgArgType slots[6];
    collect_args(args, work.get(), slots);
    *msglen = static_cast<short>(do_catread(msgset, msgnum, msg, limit, slots));
    return msg;
}

char* format_local(char* msg, short* msglen, int msgset, int msgnum, va_list args) {
    const int limit = *msglen == -1 ? IM_BUFSIZE : IM_SHORTBUF;
    auto utf = std::make_unique<char[]>(IM_BUFSIZE);
    short len = *msglen;
    format_message(utf.get(), &len, msgset, msgnum, args);
    ils_from_utf8(nullptr, utf.get(), -1, msg, limit);
    msg[limit - 1] = '\0';
    *msglen = static_cast<short>(std::strlen(msg));
    return msg;
}

char severity_letter(int opts) {
    if (opts & IM_ERROR_BITS) return 'E';
    if (opts & IM_WARN) return 'W';
    return 'I';
}

// Cuts text into lines of at most room characters (room <= 0: no limit).
std::vector<std::string> break_lines(const char* text, int room) {
    std::vector<std::string> lines;
    const char* p = text;
    do {
        std::size_t lineLen = 0;
        std::size_t skip = 0;
        for (std::size_t i = 0;; ++i) {
            const char c = p[i];
            if (c == '\0') {
                lineLen = i;
                break;
            }
            if (c == '\n') {
                lineLen = i;
                skip = 1;
                break;
            }
            if (c == '\\' && (p[i + 1] == 'n' || p[i + 1] == 'N')) {
                lineLen = i;
                skip = 2;
                break;
            }
            if (room > 0 && i == static_cast<std::size_t>(room)) {
                // p[0..room] holds no NUL and no line end: the text runs on.
                std::size_t blank = 0;
                std::size_t comma_cut = 0;
                for (std::size_t j = 1; j <= i; ++j) {
                    if (p[j] == ' ' || p[j] == '\t') blank = j;
                    if (p[j] == ',' && j < i) comma_cut = j + 1;
                }
                if (blank == 0 && comma_cut == 0) {
                    lineLen = i;
                } else if (blank > comma_cut) {
                    lineLen = blank;
                    skip = 1;
                } else {
                    lineLen = comma_cut;
                    skip = p[comma_cut] == ' ' ? 1 : 0;
                }
                break;
            }
        }
        lines.emplace_back(p, lineLen);
        p += lineLen + skip;
    } while (*p != '\0');
    return lines;
}

// What leads each line: program name, time stamp, bell and box edge, as
// the option bits ask.
std::string line_head(int opts, const TPCATtype* st) {
    std::string head;
    if (st->progname != nullptr) {
        head += st->progname;
        head += ':';
    }
    if (opts & IM_TIME) {
        char ts[32] = "";
        std::time_t now = std::time(nullptr);
        std::tm tm{};
        if (::localtime_r(&now, &tm) != nullptr) std::strftime(ts, sizeof ts, "%H:%M/", &tm);
        head += ts;
    }
    if (opts & IM_BELL) head += '\a';
    if (opts & IM_BOX) {
        head += (opts & IM_STARBOX) == IM_STARBOX ? '*' : '+';
        head += ' ';
    }
    return head;
}

// Writes text broken to the line width, each line led by head, inside a box
// of rules when the option bits ask for one.
void write_lines(std::FILE* out, int opts, const std::string& head, const std::string& text) {
    const TPCATtype* st = state();
    const bool box = (opts & IM_BOX) != 0;
    const char rule_char = (opts & IM_STARBOX) == IM_STARBOX ? '*' : '+';
    const int width = std::min(st->stdout_wid, IM_MAX_WIDTH);
    const int headLen = static_cast<int>(head.size());
    int room = 0;
    if (width > 0) room = std::max(1, width - headLen - 3);
    const std::string rule = head + std::string(static_cast<std::size_t>(std::max(0, width - 3 - headLen)), rule_char);
    if (box) std::fprintf(out, "%s\n", rule.c_str());
    for (const std::string& line : break_lines(text.c_str(), room))
        std::fprintf(out, "%s%s\n", head.c_str(), line.c_str());
    if (box) std::fprintf(out, "%s\n", rule.c_str());
    std::fflush(out);
}

// The system-log copy the option bits ask for, unless the level keeps it
// back.
void copy_to_syslog(int opts, const TPCATtype* st, const std::string& text) {
    if (!(opts & (IM_SYSLOG | IM_SYSLOG2)) || st->syslog == -1) return;
    const bool quiet =
        st->level < 0 && st->level != -1 && (opts & (IM_SYSLOG2 | IM_SYSLOG_FORCE)) != (IM_SYSLOG2 | IM_SYSLOG_FORCE);
    if (quiet) return;
    const char* fmt = "INFO: %s";
    if (opts & IM_SYSLOG_ERROR_BITS)
        fmt = "ERROR: %s";
    else if (opts & IM_BOX)
        fmt = "WARN: %s";
    else if (opts & IM_WARN)
        fmt = "NOTICE: %s";
    ::syslog(st->syslog | 3, fmt, text.c_str());
}

// Accepts a catalog text as a printf format only when its one conversion
// is of the kind that will be passed.
bool format_takes(const char* fmt, char kind) {
    int conversions = 0;
    for (const char* p = fmt; *p != '\0'; ++p) {
        if (*p != '%') continue;
        ++p;
        if (*p == '%') continue;
        while (*p == '-' || *p == '+' || *p == ' ' || *p == '#' || *p == '0') ++p;
        while (*p >= '0' && *p <= '9') ++p;
        if (*p == '.') {
            ++p;
            while (*p >= '0' && *p <= '9') ++p;
        }
        if (kind == 'f' && *p == 'l') ++p;
        const bool ok = *p != '\0' && std::strchr(kind == 'd' ? "di" : "fFeEgG", *p) != nullptr;
        if (!ok || ++conversions > 1) return false;
    }
    return true;
}

const char* exit_text(char* buf, bool& fetched, int msgnum) {
    if (!fetched) {
        short len = 0;
        issuemsgtobuf(buf, &len, 1129, msgnum, MSG_END);
        fetched = true;
    }
    return buf;
}

}  // namespace

TPCATtype* issuemsg_state() { return state(); }

short im_fmt_jobnum(int jobnum, char* out) {
    const auto v = static_cast<std::uint32_t>(jobnum);
    int n = 0;
    if (v >= 0xF0000000u)
        n = std::sprintf(out, "#J%d", -jobnum);
    else if (v & 0x40000000u)
        n = std::sprintf(out, "#S%d", static_cast<int>(v & ~0x40000000u));
    else
        n = std::sprintf(out, "#J%d", jobnum);
    return static_cast<short>(n);
}

short im_fmt_ip_addr(unsigned int addr, char* out) {
    return static_cast<short>(std::sprintf(out, "%d.%d.%d.%d", static_cast<int>((addr >> 24) & 0xFF),
                                           static_cast<int>((addr >> 16) & 0xFF), static_cast<int>((addr >> 8) & 0xFF),
                                           static_cast<int>(addr & 0xFF)));
}

int issuemsg_add_type(MsgTypeFormatter fmt) {
    TPCATtype* st = state();
    g_uts.push_back(fmt);
    st->uts = g_uts.data();
    st->numUserTypes = static_cast<short>(g_uts.size());
    return 1000 + static_cast<int>(g_uts.size()) - 1;
}

void issuemsg_set_shutdown(void (*fn)(int, const char*)) { g_shutdown = fn; }

char* VAissuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, va_list args) {
    if (msg == nullptr || msglen == nullptr) return msg;
    return format_local(msg, msglen, msgset, msgnum, args);
}

char* issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...) {
    if (msg == nullptr || msglen == nullptr) return msg;
    va_list ap;
    va_start(ap, msgnum);
    format_local(msg, msglen, msgset, msgnum, ap);
    va_end(ap);
    return msg;
}

char* nc_issuemsgtobuf(char* msg, short* msglen, int msgset, int msgnum, ...) {
    if (msg == nullptr || msglen == nullptr) return msg;
    va_list ap;
    va_start(ap, msgnum);
    format_message(msg, msglen, msgset, msgnum, ap);
    va_end(ap);
    return msg;
}

void VAissuemsg(int opts, int msgset, int msgnum, va_list args) {
    va_list peek;
    va_copy(peek, args);
    const int first = va_arg(peek, int);
    va_end(peek);

    auto buf = std::make_unique<char[]>(IM_BUFSIZE);
    short len = -1;
    format_local(buf.get(), &len, msgset, msgnum, args);
    if (std::strncmp(buf.get(), "QFR", 3) == 0) {
        if (char* blank = std::strchr(buf.get(), ' ')) *blank = severity_letter(opts);
    }
    issuebuf(opts, buf.get(), 0);
    if (first == MSG_DBSTAT) {
        std::fputc('\n', msg_stdout());
        std::fflush(msg_stdout());
    }
}

void issuemsg(int opts, int msgset, int msgnum, ...) {
    va_list ap;
    va_start(ap, msgnum);
    VAissuemsg(opts, msgset, msgnum, ap);
    va_end(ap);
}

void issuebuf(int opts, const char* buf, int buflen) {
    TPCATtype* st = state();
    std::string text = buf != nullptr ? buf : "";
    if (buflen > 0 && static_cast<std::size_t>(buflen) < text.size()) text.resize(static_cast<std::size_t>(buflen));

    std::fflush(msg_stdout());
    std::FILE* out = (opts & IM_STDERR) ? msg_stderr() : msg_stdout();
    write_lines(out, opts, line_head(opts, st), text);
    copy_to_syslog(opts, st, text);

    if (opts & (IM_FATAL | IM_FATAL2)) {
        if (g_shutdown != nullptr) g_shutdown(-1, text.c_str());
        exit_cleanly(opts);
    }
}

void exit_cleanly(int opts) {
    TPCATtype* st = state();
    if (st->fdconsole != nullptr) {
        std::fclose(st->fdconsole);
        st->fdconsole = nullptr;
    }
    if (st->fdconslog != nullptr) {
        std::fclose(st->fdconslog);
        st->fdconslog = nullptr;
    }

    static char internal_text[IM_SHORTBUF];
    static char cpu_text[IM_SHORTBUF];
    static char bye_text[IM_SHORTBUF];
    static bool have_internal = false;
    static bool have_cpu = false;
    static bool have_bye = false;

    std::FILE* err = msg_stderr();
    std::FILE* out = msg_stdout();
    if ((opts & (IM_FATAL | IM_FATAL2)) == 0) {
        const char* t = exit_text(internal_text, have_internal, 2);
        if (format_takes(t, 'd'))
            std::fprintf(err, t, 2150);
        else
            std::fputs(t, err);
        std::fputc('\n', err);
    }
    if ((st->flags & (IM_FLAG_BYE | IM_FLAG_CPU)) == (IM_FLAG_BYE | IM_FLAG_CPU)) {
        const char* t = exit_text(cpu_text, have_cpu, 3);
        const double cpu = static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
        if (format_takes(t, 'f'))
            std::fprintf(out, t, cpu);
        else
            std::fputs(t, out);
        std::fputs("\n\n", out);
    } else if (st->flags & IM_FLAG_BYE) {
        std::fputs(exit_text(bye_text, have_bye, 4), out);
        std::fputs("\n\n", out);
    }
    std::fflush(out);
    std::fflush(err);
    std::fclose(stdout);
    std::fclose(stderr);
    if ((opts & IM_FATAL) && (st->flags & IM_FLAG_CORE)) std::abort();
    std::exit(1);
}

}  // namespace alm
