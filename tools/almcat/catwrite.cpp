#include "catwrite.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "messages/catalogfile.h"

namespace alm {

namespace {

bool fits(std::int64_t v) { return v <= INT32_MAX; }

// A set's message records and its text block, deleted ones as asked.
bool set_messages(const SourceSet& set, bool keep_deleted, std::vector<MCMsgTDisk>& recs, std::string& block) {
    for (const auto& [mid, msg] : set.msgs) {
        if (msg.deleted && !keep_deleted) continue;
        MCMsgTDisk r{};
        r.msgId = mid;
        r.msg = 0;
        r.invalid = msg.deleted ? 1 : 0;
        if (!msg.deleted) {
            r.msg = static_cast<std::int32_t>(block.size());
            block += msg.text;
            block += '\0';
        }
        if (!fits(static_cast<std::int64_t>(block.size()))) return false;
        recs.push_back(r);
    }
    return true;
}

// Appends a set at offset setAt of out: its record, its message records and
// its text block. Answers where the next set goes, or -1 when it is too large.
std::int64_t append_set(std::int32_t id, const SourceSet& set, bool keep_deleted, std::int64_t setAt,
                        std::vector<unsigned char>& out) {
    std::vector<MCMsgTDisk> recs;
    std::string block;
    if (!set_messages(set, keep_deleted, recs, block)) return -1;
    const std::int64_t msgsAt = setAt + CAT_SET_SIZE;
    const std::int64_t dataAt = msgsAt + static_cast<std::int64_t>(recs.size()) * CAT_MSG_SIZE;
    const std::int64_t next = dataAt + static_cast<std::int64_t>(block.size());
    if (!fits(next)) return -1;
    MCSetTDisk d{};
    d.setId = id;
    d.nextSet = 0;
    d.u = static_cast<std::int32_t>(msgsAt);
    d.data = static_cast<std::int32_t>(dataAt);
    d.dataLen = static_cast<std::int32_t>(block.size());
    d.numMsgs = static_cast<std::int32_t>(recs.size());
    d.invalid = set.deleted ? 1 : 0;
    out.resize(static_cast<std::size_t>(next));
    d.encode(out.data() + setAt);
    for (std::size_t k = 0; k < recs.size(); ++k) recs[k].encode(out.data() + msgsAt + k * CAT_MSG_SIZE);
    std::copy(block.begin(), block.end(), out.begin() + dataAt);
    return next;
}

}  // namespace

bool encode_catalog(const SourceCatalog& cat, bool keep_deleted, std::vector<unsigned char>& out,
                    std::string& error) {
    std::int64_t valid = 0;
    for (const auto& [id, set] : cat.sets)
        if (!set.deleted) ++valid;
    if (valid == 0) {
        error = "no sets to write";
        return false;
    }
    // Layout: header, then per set its record, its message records and its
    // text block; each set record points at the next.
    std::int64_t off = CAT_HEADER_SIZE;
    std::int64_t prevSetAt = -1;
    out.assign(CAT_HEADER_SIZE, 0);
    for (const auto& [id, set] : cat.sets) {
        if (set.deleted && !keep_deleted) continue;
        const std::int64_t next = append_set(id, set, keep_deleted, off, out);
        if (next < 0) {
            error = "catalog too large";
            return false;
        }
        if (prevSetAt >= 0) store_be32(out.data() + prevSetAt + 4, static_cast<std::uint32_t>(off));
        prevSetAt = off;
        off = next;
    }
    MCHeaderDisk h{};
    std::copy(std::begin(CAT_MAGIC), std::end(CAT_MAGIC), h.magic);
    h.majorVer = CAT_MAJOR_VER;
    h.minorVer = 1;
    h.flags = 0;
    h.numSets = static_cast<std::int32_t>(valid);
    h.firstSet = CAT_HEADER_SIZE;
    h.encode(out.data());
    return true;
}

}  // namespace alm
