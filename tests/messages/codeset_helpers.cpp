#include "messages/codeset_helpers.h"

#include <iconv.h>
#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>

#include "common/runprogram.h"
#include "util/endian.h"

namespace alm::test {

ScopedEnv::ScopedEnv(const char* name, std::optional<std::string> value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    if (value)
        ::setenv(name, value->c_str(), 1);
    else
        ::unsetenv(name);
}

ScopedEnv::~ScopedEnv() {
    if (old_)
        ::setenv(name_.c_str(), old_->c_str(), 1);
    else
        ::unsetenv(name_.c_str());
}

int run_almcodeset(const std::vector<std::string>& args) {
    return run_program(built_program("almcodeset"), args).status;
}

const std::string& shared_ilsdir() {
    static TempDir dir;
    return dir.path();
}

std::string ensure_table(const std::string& codeset, const std::string& type) {
    static std::map<std::string, bool> made;
    if (!made[codeset]) {
        made[codeset] = run_almcodeset({codeset, type, shared_ilsdir()}) == 0;
    }
    return codeset;
}

std::optional<std::string> iconv_convert(const char* from, const char* to, const std::string& in,
                                         bool* incomplete) {
    if (incomplete != nullptr) *incomplete = false;
    // One descriptor per pair, kept for the process.
    struct Cache {
        std::map<std::pair<std::string, std::string>, iconv_t> cds;
        ~Cache() {
            for (auto& [names, cd] : cds)
                if (cd != reinterpret_cast<iconv_t>(-1)) iconv_close(cd);
        }
    };
    static Cache cache;
    auto [it, fresh] = cache.cds.try_emplace({from, to}, nullptr);
    if (fresh) it->second = iconv_open(to, from);
    iconv_t cd = it->second;
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    std::vector<char> inbuf(in.begin(), in.end());
    std::string out(in.size() * 4 + 16, '\0');
    char* ip = inbuf.data();
    std::size_t il = inbuf.size();
    char* op = out.data();
    std::size_t ol = out.size();
    if (iconv(cd, &ip, &il, &op, &ol) == static_cast<std::size_t>(-1)) {
        if (incomplete != nullptr) *incomplete = errno == EINVAL;
        return std::nullopt;
    }
    if (iconv(cd, nullptr, nullptr, &op, &ol) == static_cast<std::size_t>(-1)) return std::nullopt;
    out.resize(out.size() - ol);
    return out;
}

std::string utf8_of(std::uint32_t cp) {
    std::string s;
    if (cp < 0x80) {
        s += static_cast<char>(cp);
    } else if (cp < 0x800) {
        s += static_cast<char>(0xC0 | (cp >> 6));
        s += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        s += static_cast<char>(0xE0 | (cp >> 12));
        s += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        s += static_cast<char>(0xF0 | (cp >> 18));
        s += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        s += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (cp & 0x3F));
    }
    return s;
}

}  // namespace alm::test
