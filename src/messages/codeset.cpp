// Code sets: loading conversion tables, their aliases and registry, and the default code set.
#include "messages/codeset.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "messages/codeset_tables.h"
#include "util/endian.h"
#include "util/fdio.h"

namespace alm {

void ReverseMap::add(std::uint16_t cp, const std::uint8_t* bytes, int len) {
    if (len < 1 || len > 4) return;
    auto& page = pages_[cp >> 8];
    if (!page) page = std::make_unique<Page>();
    RevEntry& e = (*page)[cp & 0xFF];
    if (e.len != 0) return;
    e.len = static_cast<std::uint8_t>(len);
    std::memcpy(e.bytes.data(), bytes, static_cast<std::size_t>(len));
}

const RevEntry* ReverseMap::find(std::uint32_t cp) const {
    if (cp > 0xFFFF) return nullptr;
    const auto& page = pages_[cp >> 8];
    if (!page) return nullptr;
    const RevEntry& e = (*page)[cp & 0xFF];
    return e.len != 0 ? &e : nullptr;
}

std::size_t ReverseMap::pages_used() const {
    std::size_t n = 0;
    for (const auto& p : pages_) n += p ? 1 : 0;
    return n;
}

namespace {

// Bounds the work of walking a multi-byte table, whose nodes a corrupt
// file could make branch far more than any real code set does.
constexpr long kMbcsWalkBudget = 1L << 22;

void add1(CodeSet& cs, std::uint16_t cp, unsigned b) {
    if (cp == kNoMapping) return;
    const std::uint8_t byte = static_cast<std::uint8_t>(b);
    cs.rev.add(cp, &byte, 1);
}

void add2(CodeSet& cs, std::uint16_t cp, unsigned b1, unsigned b2) {
    if (cp == kNoMapping) return;
    const std::uint8_t bytes[2] = {static_cast<std::uint8_t>(b1), static_cast<std::uint8_t>(b2)};
    cs.rev.add(cp, bytes, 2);
}

void walk_mbcs(CodeSet& cs, std::uint16_t entry, std::uint8_t* seq, int depth, int len,
               long& budget) {
    if (depth == len) {
        if (entry != kNoMapping) cs.rev.add(entry, seq, len);
        return;
    }
    const std::size_t idx = std::size_t{entry} * 2;
    if (idx + 1 >= cs.rows.size()) return;
    const unsigned count = cs.rows[idx];
    const unsigned base = cs.rows[idx + 1];
    for (unsigned k = 0; k < count && base + k < 256; ++k) {
        const std::size_t j = idx + 2 + k;
        if (j >= cs.rows.size() || --budget < 0) return;
        seq[depth] = static_cast<std::uint8_t>(base + k);
        walk_mbcs(cs, cs.rows[j], seq, depth + 1, len, budget);
    }
}

void build_reverse(CodeSet& cs) {
    const std::size_t single_row = std::size_t{cs.entries[0]} * 2;
    switch (cs.type) {
    case CS_SBCS:
        for (unsigned b = cs.ebcdic ? 0 : 128; b < 256; ++b) add1(cs, cs.entries[b], b);
        break;
    case CS_DBCS:
        for (unsigned b = 128; b < 256; ++b)
            if (cs.lengths[b] == 1) add1(cs, cs.row_at(single_row + b), b);
        for (unsigned b = 128; b < 256; ++b) {
            if (cs.lengths[b] != 2) continue;
            const std::size_t row = std::size_t{cs.entries[b]} * 2;
            for (unsigned b2 = 0; b2 < 256; ++b2) add2(cs, cs.row_at(row + b2), b, b2);
        }
        break;
    case CS_MBCS: {
        for (unsigned b = 128; b < 256; ++b)
            if (cs.lengths[b] <= 1) add1(cs, cs.entries[b], b);
        long budget = kMbcsWalkBudget;
        for (unsigned b = 128; b < 256; ++b) {
            const int len = cs.lengths[b];
            if (len < 2 || len > 4) continue;
            std::uint8_t seq[4] = {static_cast<std::uint8_t>(b), 0, 0, 0};
            walk_mbcs(cs, cs.entries[b], seq, 1, len, budget);
        }
        break;
    }
    case CS_EBCDIC_DBCS:
        // Shift-out and shift-in never stand for characters, not even as
        // the second byte of a pair.
        for (unsigned b = 0; b < 256; ++b)
            if (b != 0x0E && b != 0x0F) add1(cs, cs.row_at(single_row + b), b);
        for (unsigned b = 0; b < 256; ++b) {
            if (cs.lengths[b] != 2 || b == 0x0E || b == 0x0F) continue;
            const std::size_t row = std::size_t{cs.entries[b]} * 2;
            for (unsigned b2 = 0; b2 < 256; ++b2)
                if (b2 != 0x0E && b2 != 0x0F) add2(cs, cs.row_at(row + b2), b, b2);
        }
        break;
    default:
        break;
    }
}

// Owns a descriptor for the length of a scope.
class Fd {
public:
    explicit Fd(int fd) : fd_(fd) {}
    ~Fd() {
        if (fd_ >= 0) ::close(fd_);
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

// Reads a whole regular file of at most kTableMaxSize bytes.
bool read_file(const std::string& path, std::vector<unsigned char>& out) {
    // Non-blocking so that opening a FIFO cannot hang; it is refused below.
    Fd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (fd.get() < 0) return false;
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    if (st.st_size < 0 || static_cast<unsigned long long>(st.st_size) > kTableMaxSize) return false;
    out.assign(static_cast<std::size_t>(st.st_size), 0);
    const ssize_t got = read_full(fd.get(), out.data(), out.size());
    out.resize(got < 0 ? 0 : static_cast<std::size_t>(got));  // a file that shrank while read is taken as it is
    return true;
}

// Path length rule shared by every place a table is looked for.
constexpr std::size_t kMaxDirAndName = 253;

std::string dir_of(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string alias_target(const std::vector<unsigned char>& text) {
    std::string name;
    for (unsigned char c : text)
        if (c > 0x20 && c != 0x7F) name.push_back(static_cast<char>(c));
    return name;
}

struct Registry {
    CodeSet utf8;
    std::vector<std::unique_ptr<CodeSet>> sets;
    CodeSet* def = nullptr;

    Registry() {
        utf8.name = "UTF8";
        utf8.type = CS_UTF8;
        def = &utf8;
    }
};

Registry& registry() {
    static Registry r;
    return r;
}

}  // namespace

bool is_table_image(const unsigned char* data, std::size_t size) {
    return data != nullptr && size >= kTableMinSize && std::memcmp(data + kOffMagic, "ucv", 3) == 0;
}

std::unique_ptr<CodeSet> cs_from_image(const char* name, const unsigned char* data,
                                       std::size_t size) {
    if (!is_table_image(data, size)) return nullptr;
    auto cs = std::make_unique<CodeSet>();
    cs->name = name != nullptr ? name : "";
    cs->size = size;
    cs->row_offset = load_host32(data + kOffRowArea);
    cs->type = load_host16(data + kOffType);
    cs->ebcdic_mark = load_host16(data + kOffEbcdicMark);
    cs->ebcdic = cs->type == CS_SBCS && cs->ebcdic_mark == kEbcdicMark;
    for (std::size_t b = 0; b < 256; ++b) {
        cs->entries[b] = load_host16(data + kOffEntries + 2 * b);
        cs->lengths[b] = data[kOffLengths + b];
    }
    if ((cs->type == CS_DBCS || cs->type == CS_MBCS || cs->type == CS_EBCDIC_DBCS) &&
        cs->row_offset < size) {
        const std::size_t n = (size - cs->row_offset) / 2;
        cs->rows.resize(n);
        for (std::size_t i = 0; i < n; ++i) cs->rows[i] = load_host16(data + cs->row_offset + 2 * i);
    }
    build_reverse(*cs);
    return cs;
}

std::unique_ptr<CodeSet> load_table_file(const std::string& path, const char* name) {
    std::string cur = path;
    std::vector<unsigned char> data;
    for (int step = 0;; ++step) {
        if (cur.size() > kMaxDirAndName || !read_file(cur, data)) return nullptr;
        if (is_table_image(data.data(), data.size())) return cs_from_image(name, data.data(), data.size());
        if (step == kMaxAliasSteps) return nullptr;
        const std::string target = alias_target(data);
        if (target.empty()) return nullptr;
        cur = dir_of(cur) + target;
    }
}

std::unique_ptr<CodeSet> get_table(const char* name) {
    if (name == nullptr || *name == '\0') return nullptr;
    const std::size_t namelen = std::strlen(name);
    auto try_dir = [&](const std::string& dir) -> std::unique_ptr<CodeSet> {
        if (dir.size() + namelen > kMaxDirAndName) return nullptr;
        return load_table_file(dir + name, name);
    };
    const char* ils = std::getenv("ILSDIR");
    if (ils != nullptr && *ils != '\0' && std::strlen(ils) + 10 < 255)
        if (auto cs = try_dir(std::string(ils) + "/codeset/")) return cs;
    const char* bin = std::getenv("BINDIR");
    if (bin != nullptr && *bin != '\0' && std::strlen(bin) + 21 < 255)
        if (auto cs = try_dir(std::string(bin) + "/../generic/codeset/")) return cs;
    return try_dir(std::string());
}

CodeSet* utf8_cs() { return &registry().utf8; }

CodeSet* cs_new(const char* name) {
    if (name == nullptr || *name == '\0') return nullptr;
    Registry& r = registry();
    if (std::strcmp(name, "UTF8") == 0) return &r.utf8;
    for (const auto& cs : r.sets)
        if (cs->name == name) return cs.get();
    auto cs = get_table(name);
    if (!cs) return nullptr;
    r.sets.push_back(std::move(cs));
    return r.sets.back().get();
}

CodeSet* ils_get_cs(const char* name) { return cs_new(name); }

void ils_set_def_cs(CodeSet* cs) { registry().def = cs != nullptr ? cs : &registry().utf8; }

CodeSet* ils_get_def_cs() { return registry().def; }

}  // namespace alm
