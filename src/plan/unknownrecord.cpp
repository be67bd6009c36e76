// The report of a record whose type code no conversion knows.
#include "plan/unknownrecord.h"

#include <cstdio>
#include <cstring>

#include "messages/issuemsg.h"

namespace alm {

namespace {

constexpr int kMaxWidth = 64;

struct ReportArg {
    bool is_text;
    const char* text;
    int number;
};

void append_padded(std::string& out, const std::string& field, bool left, char pad, int width) {
    const int fill = width > static_cast<int>(field.size()) ? width - static_cast<int>(field.size()) : 0;
    if (left) {
        out += field;
        out.append(static_cast<std::size_t>(fill), ' ');
    } else if (pad == '0' && !field.empty() && field[0] == '-') {
        out += '-';
        out.append(static_cast<std::size_t>(fill), '0');
        out.append(field, 1);
    } else {
        out.append(static_cast<std::size_t>(fill), pad);
        out += field;
    }
}

}  // namespace

std::string format_record_report(const char* catalog_text, const char* file, int line, int code) {
    const ReportArg args[] = {{true, file != nullptr ? file : "", 0}, {false, nullptr, line}, {false, nullptr, code}};
    std::size_t next = 0;
    std::string out;
    if (catalog_text == nullptr) return out;
    const char* p = catalog_text;
    while (*p != '\0') {
        if (*p != '%') {
            out += *p++;
            continue;
        }
        const char* start = p++;
        if (*p == '%') {
            out += '%';
            ++p;
            continue;
        }
        bool left = false;
        char pad = ' ';
        for (; *p == '-' || *p == '0'; ++p) {
            if (*p == '-') left = true;
            else pad = '0';
        }
        int width = 0;
        for (; *p >= '0' && *p <= '9'; ++p) {
            if (width <= kMaxWidth) width = width * 10 + (*p - '0');
        }
        if (width > kMaxWidth) width = kMaxWidth;
        const char conv = *p;
        if ((conv != 's' && conv != 'd') || next >= std::size(args)) {
            // Not ours to expand: keep the text up to here and go on after it.
            out.append(start, static_cast<std::size_t>(p - start));
            continue;
        }
        ++p;
        const ReportArg& a = args[next++];
        const std::string field = a.is_text ? std::string(a.text) : std::to_string(a.number);
        append_padded(out, field, left, a.is_text || conv == 's' ? ' ' : pad, width);
    }
    return out;
}

void report_unknown_record(int msgnum, int line, int code) {
    char text[256] = {};
    short len = 0;  // anything but -1: a 256-byte buffer
    issuemsgtobuf(text, &len, 2072, msgnum, MSG_END);
    text[sizeof text - 1] = '\0';
    // The catalog text decides the line end: none is added here.
    const std::string out = format_record_report(text, "almaccs", line, code);
    std::fputs(out.c_str(), stderr);
}

}  // namespace alm
