// Message catalogs in memory: loading, finding sets and messages, and the cache of opened catalogs.
#include "messages/msgcat.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "messages/catalogfile.h"
#include "messages/codeset.h"
#include "messages/msgstream.h"
#include "util/fdio.h"

namespace alm {

namespace {

constexpr const char* MCS_NAME = "Message Catalog System";

struct CacheSlot {
    std::string name;
    std::unique_ptr<MCCatT> cat;
    long accessed = 0;
    int open = 0;  // holders: every open of the catalog counts until closed
};

CacheSlot catcache[NIM_CACHE_SLOTS];
long access_counter = 0;

nim_catd to_handle(const MCCatT* cat) { return reinterpret_cast<nim_catd>(cat); }

// Reads exactly len bytes at off; false on any shortfall.
bool read_at(int fd, std::int64_t off, void* buf, std::size_t len) {
    return pread_full(fd, buf, len, static_cast<off_t>(off)) == static_cast<ssize_t>(len);
}

bool in_file(const MCCatT* cat, std::int64_t off, std::int64_t len) {
    return off >= 0 && len >= 0 && off <= cat->fileSize && len <= cat->fileSize - off;
}

void no_memory() { std::fprintf(msg_stderr(), "%s: no more memory.\n", MCS_NAME); }

CacheSlot* slot_of(const MCCatT* cat) {
    if (cat == nullptr) return nullptr;
    for (auto& s : catcache)
        if (s.cat.get() == cat) return &s;
    return nullptr;
}

// Enters a new catalog: first empty slot, else the least recently used slot
// that nobody holds open. -1 when every slot is open.
nim_catd addCat(const char* name, std::unique_ptr<MCCatT> cat) {
    CacheSlot* slot = nullptr;
    for (auto& s : catcache) {
        if (!s.cat) {
            slot = &s;
            break;
        }
    }
    if (slot == nullptr) {
        for (auto& s : catcache) {
            if (s.open) continue;
            if (slot == nullptr || s.accessed < slot->accessed) slot = &s;
        }
    }
    if (slot == nullptr) return NIM_CATD_ERR;
    try {
        slot->name = name;
    } catch (const std::bad_alloc&) {
        no_memory();
        return NIM_CATD_ERR;
    }
    slot->cat = std::move(cat);
    slot->accessed = ++access_counter;
    slot->open = 1;
    return to_handle(slot->cat.get());
}

// Narrowing search over ascending ids: after probing a smaller id the upper
// bound drops to probe + (wanted - probed), since ids rise by at least one
// per entry. Terminates and stays in bounds whatever the ids are.
template <class T, class IdOf>
T* narrow_search(std::vector<T>& v, std::int64_t want, std::int64_t start, IdOf id_of) {
    std::int64_t lo = 0;
    std::int64_t hi = static_cast<std::int64_t>(v.size()) - 1;
    std::int64_t i = (start >= 0 && start <= hi) ? start : hi / 2;
    while (lo <= hi) {
        std::int64_t id = id_of(v[static_cast<std::size_t>(i)]);
        if (id == want) return &v[static_cast<std::size_t>(i)];
        if (id < want) {
            lo = i + 1;
            hi = std::min(hi, i + (want - id));
        } else {
            hi = i - 1;
        }
        i = lo + (hi - lo) / 2;
    }
    return nullptr;
}

}  // namespace

MCCatT::~MCCatT() {
    if (fd >= 0) ::close(fd);
}

void nim_corrupt_cat(const char* path) {
    std::fprintf(msg_stderr(),
                 "%s: Attempted to use Nimbus message catalog software to access\n"
                 "%s which is not a valid Nimbus message catalog.\n"
                 "Moving the Nimbus message catalog directory to the front of NLSPATH\n"
                 "may correct this problem.\n",
                 MCS_NAME, path);
}

MCCatT* lookupCat(const char* name) {
    if (name == nullptr) return nullptr;
    for (auto& s : catcache)
        if (s.cat && s.name == name) return s.cat.get();
    return nullptr;
}

MCCatT* nim_cat(nim_catd catd) {
    if (catd == 0 || catd == NIM_CATD_ERR) return nullptr;
    for (auto& s : catcache)
        if (s.cat && to_handle(s.cat.get()) == catd) return s.cat.get();
    return nullptr;
}

namespace {

// Checks the header of the catalog open in cat and returns it through h.
// NIM_CATD_ERR or 0 (a corrupt file, reported) when it is unusable; 1 else.
nim_catd read_header(MCCatT* cat, const char* path, MCHeaderDisk& h) {
    struct stat st {};
    if (::fstat(cat->fd, &st) != 0) return NIM_CATD_ERR;
    cat->fileSize = static_cast<std::int64_t>(st.st_size);

    unsigned char hb[CAT_HEADER_SIZE];
    if (!read_at(cat->fd, 0, hb, sizeof hb)) {
        nim_corrupt_cat(path);
        return 0;
    }
    h = MCHeaderDisk::decode(hb);
    if (!h.magic_ok()) {
        nim_corrupt_cat(path);
        return 0;
    }
    if (h.majorVer != CAT_MAJOR_VER) {
        std::fprintf(msg_stderr(), "%s: %s is version %ld, we need %d.\n", MCS_NAME, path,
                     static_cast<long>(h.majorVer), CAT_MAJOR_VER);
        return NIM_CATD_ERR;
    }
    if (h.numSets < 1) {
        std::fprintf(msg_stderr(), "%s: %s has %ld sets!\n", MCS_NAME, path, static_cast<long>(h.numSets));
        return NIM_CATD_ERR;
    }
    return 1;
}

// Reads the chain of set records into cat->sets (the valid ones, not yet
// loaded). Results as read_header.
nim_catd read_sets(MCCatT* cat, const char* path, const MCHeaderDisk& h) {
    // Every valid set needs a record of its own inside the file.
    const std::int64_t maxRecords = cat->fileSize / CAT_SET_SIZE;
    if (h.numSets > maxRecords) {
        nim_corrupt_cat(path);
        return 0;
    }
    try {
        cat->sets.reserve(static_cast<std::size_t>(h.numSets));
    } catch (const std::bad_alloc&) {
        no_memory();
        return NIM_CATD_ERR;
    }

    std::int64_t off = h.firstSet;
    std::int64_t records = 0;
    while (static_cast<std::int64_t>(cat->sets.size()) < h.numSets) {
        unsigned char sb[CAT_SET_SIZE];
        // A chain longer than the file has records loops on itself.
        if (++records > maxRecords || !read_at(cat->fd, off, sb, sizeof sb)) {
            nim_corrupt_cat(path);
            return 0;
        }
        MCSetTDisk d = MCSetTDisk::decode(sb);
        off = d.nextSet;
        if (d.invalid != 0) continue;
        MCSetT set;
        set.setId = d.setId;
        set.nextSet = d.nextSet;
        set.u = d.u;
        set.data = d.data;
        set.dataLen = d.dataLen;
        set.numMsgs = d.numMsgs;
        set.invalid = 1;
        cat->sets.push_back(std::move(set));
    }
    cat->numSets = h.numSets;
    cat->firstSet = h.firstSet;
    return 1;
}

// Loads every set at once. Results as read_header.
nim_catd load_all_sets(MCCatT* cat, const char* path) {
    for (auto& set : cat->sets) {
        const int r = loadSet(cat, &set);
        if (r == 0) {
            nim_corrupt_cat(path);
            return 0;
        }
        if (r < 0) {
            no_memory();
            return NIM_CATD_ERR;
        }
    }
    return 1;
}

}  // namespace

nim_catd loadCat(const char* path, int flags) {
    if (path == nullptr) return NIM_CATD_ERR;
    if (MCCatT* cached = lookupCat(path)) {
        CacheSlot* s = slot_of(cached);
        s->accessed = ++access_counter;
        // Held again: never evicted while any caller may use the handle.
        ++s->open;
        return to_handle(cached);
    }

    int fd = ::open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) return NIM_CATD_ERR;
    std::unique_ptr<MCCatT> cat;
    try {
        cat = std::make_unique<MCCatT>();
    } catch (const std::bad_alloc&) {
        ::close(fd);
        no_memory();
        return NIM_CATD_ERR;
    }
    cat->fd = fd;
    cat->loadType = flags;

    MCHeaderDisk h{};
    nim_catd r = read_header(cat.get(), path, h);
    if (r == 1) r = read_sets(cat.get(), path, h);
    if (r == 1 && (flags & NIM_CAT_LOADALL)) r = load_all_sets(cat.get(), path);
    if (r != 1) return r;
    return addCat(path, std::move(cat));
}

int loadSet(MCCatT* cat, MCSetT* set) {
    if (cat == nullptr || set == nullptr) return 0;
    if (set->invalid == 0) return 1;
    if (cat->fd < 0) return 0;
    if (!in_file(cat, set->data, set->dataLen)) return 0;
    if (set->numMsgs < 0 || !in_file(cat, set->u, std::int64_t{set->numMsgs} * CAT_MSG_SIZE)) return 0;

    const auto dataLen = static_cast<std::size_t>(set->dataLen);
    const auto numRecs = static_cast<std::size_t>(set->numMsgs);
    try {
        std::vector<char> block(dataLen);
        if (dataLen > 0 && !read_at(cat->fd, set->data, block.data(), dataLen)) return 0;
        std::vector<unsigned char> recs(numRecs * CAT_MSG_SIZE);
        if (numRecs > 0 && !read_at(cat->fd, set->u, recs.data(), recs.size())) return 0;

        // Converted texts may grow; the last byte always stays a NUL so that
        // a text that finds no room left is still a terminated empty string.
        const std::size_t cap = 2 * dataLen + 1;
        auto area = std::make_unique<char[]>(cap);
        std::vector<MCMsgT> msgs;
        msgs.reserve(numRecs);
        std::size_t pos = 0;
        for (std::size_t k = 0; k < numRecs; ++k) {
            MCMsgTDisk d = MCMsgTDisk::decode(recs.data() + k * CAT_MSG_SIZE);
            if (d.invalid != 0) continue;
            if (d.msg < 0 || static_cast<std::size_t>(d.msg) >= dataLen) return 0;
            const char* src = block.data() + d.msg;
            if (std::memchr(src, '\0', dataLen - static_cast<std::size_t>(d.msg)) == nullptr) return 0;
            char* dst = area.get() + pos;
            const std::size_t room = cap - 1 - pos;
            if (room > 0) {
                ils_from_utf8(nullptr, src, -1, dst, static_cast<int>(std::min<std::size_t>(room, 0x7fffffff)));
                pos += ::strnlen(dst, room - 1) + 1;
                area[pos - 1] = '\0';
            }
            msgs.push_back(MCMsgT{d.msgId, dst, 0});
        }
        set->msgs = std::move(msgs);
        set->text = std::move(area);
    } catch (const std::bad_alloc&) {
        return -1;
    }
    set->numMsgs = static_cast<std::int32_t>(set->msgs.size());
    set->invalid = 0;

    bool all = std::all_of(cat->sets.begin(), cat->sets.end(), [](const MCSetT& s) { return s.invalid == 0; });
    if (all && cat->fd >= 0) {
        ::close(cat->fd);
        cat->fd = -1;
    }
    return 1;
}

MCSetT* MCGetSet(MCCatT* cat, int setId) {
    if (cat == nullptr) return nullptr;
    MCSetT* set = narrow_search(cat->sets, setId, setId, [](const MCSetT& s) { return s.setId; });
    if (set != nullptr && set->invalid != 0) loadSet(cat, set);
    return set;
}

MCMsgT* MCGetMsg(MCSetT* set, int msgId) {
    if (set == nullptr || set->invalid != 0 || msgId < 1) return nullptr;
    return narrow_search(set->msgs, msgId, std::int64_t{msgId} - 1, [](const MCMsgT& m) { return m.msgId; });
}

const char* nim_catgets(nim_catd catd, int setId, int msgId, const char* dflt) {
    MCCatT* cat = nim_cat(catd);
    if (cat == nullptr) return dflt;
    MCMsgT* msg = MCGetMsg(MCGetSet(cat, setId), msgId);
    return msg != nullptr ? msg->msg : dflt;
}

int nim_catclose(nim_catd catd) {
    for (auto& s : catcache) {
        if (s.cat && s.open > 0 && to_handle(s.cat.get()) == catd) {
            --s.open;
            return 0;
        }
    }
    return -1;
}

void nim_cache_flush() {
    for (auto& s : catcache) {
        if (s.cat && !s.open) {
            s.cat.reset();
            s.name.clear();
            s.accessed = 0;
        }
    }
}

}  // namespace alm
