// Message catalogs in memory: loading a catalog file, loading its sets on
// first use, finding sets and messages, and the ten-slot cache of opened
// catalogs behind the handles that callers hold.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace alm {

// A catalog handle is the catalog's address; NIM_CATD_ERR means failure.
using nim_catd = long;
inline constexpr nim_catd NIM_CATD_ERR = -1;

// Open flags: take the language from the locale variables, load every set
// at once (and close the file).
inline constexpr int NIM_CAT_LOCALE = 1;
inline constexpr int NIM_CAT_LOADALL = 2;

inline constexpr int NIM_CACHE_SLOTS = 10;

struct MCMsgT {
    std::int32_t msgId = 0;
    const char* msg = nullptr;  // into the set's text area
    std::int32_t invalid = 0;
};

struct MCSetT {
    std::int32_t setId = 0;
    std::int32_t nextSet = 0;
    std::int32_t u = 0;        // file offset of the message records
    std::int32_t data = 0;     // file offset of the text block
    std::int32_t dataLen = 0;
    std::int32_t numMsgs = 0;  // records on disk; once loaded, the valid ones
    std::int32_t invalid = 1;  // non-zero: not loaded yet
    std::vector<MCMsgT> msgs;
    std::unique_ptr<char[]> text;
};

struct MCCatT {
    MCCatT() = default;
    MCCatT(const MCCatT&) = delete;
    MCCatT& operator=(const MCCatT&) = delete;
    ~MCCatT();

    int loadType = 0;
    int fd = -1;  // -1 once every set is loaded
    std::int32_t numSets = 0;
    std::vector<MCSetT> sets;  // the valid sets, ascending ids
    std::int32_t firstSet = 0;
    std::int64_t fileSize = 0;  // bounds every offset read from the file
};

// Loads the catalog at path (or returns it from the cache, stamped and open).
// Returns the handle; 0 for a corrupt or foreign file (after writing the
// corrupt-catalog text to standard error), -1 for any other failure.
nim_catd loadCat(const char* path, int flags);
// Reads a set's records and texts: 1 loaded, 0 unreadable or inconsistent
// with the file, -1 no memory.
int loadSet(MCCatT* cat, MCSetT* set);
// The set with that id, loaded on first use; nullptr when absent.
MCSetT* MCGetSet(MCCatT* cat, int setId);
// The message with that id in a loaded set; nullptr when absent.
MCMsgT* MCGetMsg(MCSetT* set, int msgId);

// The catalog behind a handle, or nullptr when no cache slot holds it.
MCCatT* nim_cat(nim_catd catd);
// The cached catalog loaded from that path, or nullptr.
MCCatT* lookupCat(const char* name);

const char* nim_catgets(nim_catd catd, int setId, int msgId, const char* dflt);
// 0, or -1 when no open cache slot holds the handle. The catalog stays
// cached for reuse.
int nim_catclose(nim_catd catd);

// Frees every cached catalog that no caller holds open.
void nim_cache_flush();

// Writes the corrupt-catalog text naming path to standard error.
void nim_corrupt_cat(const char* path);

}  // namespace alm
