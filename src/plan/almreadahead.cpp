// What a session keeps of the plan file while a query walks it.
#include "plan/almreadahead.h"

#include <cstring>
#include <memory>
#include <new>

#include "plan/almaccs.h"
#include "util/fdio.h"
#include "util/pages.h"

namespace alm {

namespace {

using State = alm_read_ahead_state;

std::size_t kept_slot(off_t off, std::size_t len) {
    return static_cast<std::size_t>(off) / len % State::kKeptRecords;
}

}  // namespace

alm_read_ahead::alm_read_ahead(alm_comarea* ca) {
    if (!alm_valid(ca)) return;
    if (!ca->read_ahead) {
        // Without memory for it every read simply goes to the file.
        try {
            auto state = std::make_unique<State>();
            for (auto& b : state->blocks) b.bytes = std::make_unique_for_overwrite<unsigned char[]>(State::kBlockBytes);
            ca->read_ahead = std::move(state);
        } catch (const std::bad_alloc&) {
            return;
        }
    }
    ++ca->read_ahead->depth;
    ca_ = ca;
}

alm_read_ahead::~alm_read_ahead() {
    if (ca_ == nullptr || !ca_->read_ahead) return;
    if (--ca_->read_ahead->depth == 0) ca_->read_ahead.reset();
}

namespace {

// The bytes in a block that holds them all, or null; notes in forward
// whether off continues where a block ends.
const unsigned char* in_blocks(State* ra, std::size_t len, off_t off, bool& forward) {
    for (auto& b : ra->blocks) {
        if (b.len == 0) continue;
        if (off >= b.start && static_cast<std::size_t>(off - b.start) + len <= b.len) {
            b.used = ++ra->clock;
            return b.bytes.get() + (off - b.start);
        }
        forward = forward || off == b.start + static_cast<off_t>(b.len);
    }
    return nullptr;
}

// The tag of the slot where a record read on its own is kept, or null: a
// request with only a few reads on their own keeps nothing.
State::KeptTag* kept_tag(State* ra, std::size_t len, off_t off, std::size_t& slot) {
    const bool keepable = len <= State::kKeptBytes && (ra->kept_tags || ++ra->single_reads > 8);
    if (!keepable) return nullptr;
    if (!ra->kept_tags) {
        try {
            ra->kept_tags = std::make_unique<State::KeptTag[]>(State::kKeptRecords);
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
    }
    slot = kept_slot(off, len);
    return &ra->kept_tags[slot];
}

// Reads a block from off into the least recently used block; the bytes at
// its start, or null on a short block or a failure.
const unsigned char* through_block(alm_comarea* ca, State* ra, std::size_t len, off_t off) {
    const std::size_t block_bytes = ra->next_block_bytes;
    if (len > block_bytes) return nullptr;
    auto& b = ra->blocks[0].used <= ra->blocks[1].used ? ra->blocks[0] : ra->blocks[1];
    b.len = 0;
    if (block_bytes < State::kBlockBytes) ra->next_block_bytes = block_bytes * 2;
    // A long walk fills the whole block from here on: its pages come in at
    // once rather than a fault at a time under the read.
    if (block_bytes == State::kBlockBytes && !b.prefaulted) {
        prefault(b.bytes.get(), block_bytes);
        b.prefaulted = true;
    }
    const ssize_t n = pread_retry(ca->fnum, b.bytes.get(), block_bytes, off);
    if (n < static_cast<ssize_t>(len)) return nullptr;
    b.start = off;
    b.len = static_cast<std::size_t>(n);
    b.used = ++ra->clock;
    return b.bytes.get();
}

// Notes a record read on its own in its slot; kept when read for the
// second time since its slot last changed.
void note_single(State* ra, State::KeptTag* tag, std::size_t slot, const void* buf, std::size_t len, off_t off) {
    const bool again = tag->off == off && tag->len == len;
    if (again && !ra->kept) {
        try {
            ra->kept = std::make_unique_for_overwrite<unsigned char[]>(State::kKeptRecords * State::kKeptBytes);
        } catch (const std::bad_alloc&) {
        }
    }
    tag->off = off;
    tag->len = len;
    tag->held = again && ra->kept;
    if (tag->held) std::memcpy(ra->kept.get() + slot * State::kKeptBytes, buf, len);
}

}  // namespace

ssize_t alm_pread_at(alm_comarea* ca, void* buf, std::size_t len, off_t off, const unsigned char** at) {
    *at = static_cast<const unsigned char*>(buf);
    State* ra = ca->read_ahead.get();
    if (ra == nullptr || len == 0 || off < 0) return pread_retry(ca->fnum, buf, len, off);

    // Going on from the last read, or skipping a few records ahead of it.
    bool forward = ra->last_end >= 0 && off >= ra->last_end && off - ra->last_end < static_cast<off_t>(State::kBlockBytes / 8);
    ra->last_end = off + static_cast<off_t>(len);
    const unsigned char* kept = in_blocks(ra, len, off, forward);

    std::size_t slot = 0;
    State::KeptTag* tag = kept ? nullptr : kept_tag(ra, len, off, slot);
    if (tag && tag->held && tag->off == off && tag->len == len) kept = ra->kept.get() + slot * State::kKeptBytes;
    // A short block or a failure: the single read below gives the result
    // (and the error) that the caller would have had anyway.
    if (!kept && forward) kept = through_block(ca, ra, len, off);
    if (kept) {
        *at = kept;
        return static_cast<ssize_t>(len);
    }
    const ssize_t n = pread_retry(ca->fnum, buf, len, off);
    if (tag && n == static_cast<ssize_t>(len)) note_single(ra, tag, slot, buf, len, off);
    return n;
}

ssize_t alm_pread(alm_comarea* ca, void* buf, std::size_t len, off_t off) {
    const unsigned char* at = nullptr;
    const ssize_t n = alm_pread_at(ca, buf, len, off, &at);
    if (n > 0 && at != buf) std::memcpy(buf, at, static_cast<std::size_t>(n));
    return n;
}

}  // namespace alm
