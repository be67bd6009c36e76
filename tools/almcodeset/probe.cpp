#include "probe.h"

#include <cerrno>

#include "util/endian.h"

namespace alm {

Probe::Probe(const char* codeset) : cd_(iconv_open("UTF-32LE", codeset)) {}

Probe::~Probe() {
    if (ok()) iconv_close(cd_);
}

ProbeResult Probe::convert(const unsigned char* in, std::size_t n, std::uint16_t* cp) {
    *cp = 0xFFFF;
    char inbuf[8];
    char outbuf[64];
    if (n > sizeof inbuf) return ProbeResult::Invalid;
    for (std::size_t i = 0; i < n; ++i) inbuf[i] = static_cast<char>(in[i]);
    iconv(cd_, nullptr, nullptr, nullptr, nullptr);
    char* ip = inbuf;
    std::size_t il = n;
    char* op = outbuf;
    std::size_t ol = sizeof outbuf;
    if (iconv(cd_, &ip, &il, &op, &ol) == static_cast<std::size_t>(-1)) {
        if (errno == EINVAL) return ProbeResult::Incomplete;
        if (errno != E2BIG) return ProbeResult::Invalid;
        return ProbeResult::Char;
    }
    if (iconv(cd_, nullptr, nullptr, &op, &ol) == static_cast<std::size_t>(-1))
        return ProbeResult::Char;
    const std::size_t out = sizeof outbuf - ol;
    if (out == 4) {
        const std::uint32_t v = load_le32(outbuf);
        if (v < 0xFFFF) *cp = static_cast<std::uint16_t>(v);
    }
    return ProbeResult::Char;
}

}  // namespace alm
