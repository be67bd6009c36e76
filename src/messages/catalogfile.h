// The binary message catalog file: a 28-byte header, a chain of 28-byte set
// records, per set a row of 12-byte message records and a block of
// NUL-terminated UTF-8 texts. Every integer is 32-bit big-endian and every
// offset counts from the start of the file, except a message's text offset,
// which counts from the start of its set's text block.
#pragma once

#include <cstdint>
#include <cstring>

#include "util/endian.h"

namespace alm {

inline constexpr char CAT_MAGIC[8] = {'*', 'n', 'a', 'z', 'g', 'u', 'l', '*'};
inline constexpr int CAT_MAJOR_VER = 1;
inline constexpr int CAT_HEADER_SIZE = 28;
inline constexpr int CAT_SET_SIZE = 28;
inline constexpr int CAT_MSG_SIZE = 12;

struct MCHeaderDisk {
    char magic[8];
    std::int32_t majorVer;
    std::int32_t minorVer;
    std::int32_t flags;
    std::int32_t numSets;
    std::int32_t firstSet;

    static MCHeaderDisk decode(const unsigned char* b) {
        MCHeaderDisk h{};
        std::memcpy(h.magic, b, sizeof h.magic);
        h.majorVer = static_cast<std::int32_t>(load_be32(b + 8));
        h.minorVer = static_cast<std::int32_t>(load_be32(b + 12));
        h.flags = static_cast<std::int32_t>(load_be32(b + 16));
        h.numSets = static_cast<std::int32_t>(load_be32(b + 20));
        h.firstSet = static_cast<std::int32_t>(load_be32(b + 24));
        return h;
    }
    void encode(unsigned char* b) const {
        std::memcpy(b, magic, sizeof magic);
        store_be32(b + 8, static_cast<std::uint32_t>(majorVer));
        store_be32(b + 12, static_cast<std::uint32_t>(minorVer));
        store_be32(b + 16, static_cast<std::uint32_t>(flags));
        store_be32(b + 20, static_cast<std::uint32_t>(numSets));
        store_be32(b + 24, static_cast<std::uint32_t>(firstSet));
    }
    bool magic_ok() const { return std::memcmp(magic, CAT_MAGIC, sizeof magic) == 0; }
};

struct MCSetTDisk {
    std::int32_t setId;
    std::int32_t nextSet;
    std::int32_t u;  // offset of the message records
    std::int32_t data;
    std::int32_t dataLen;
    std::int32_t numMsgs;
    std::int32_t invalid;

    static MCSetTDisk decode(const unsigned char* b) {
        MCSetTDisk s{};
        s.setId = static_cast<std::int32_t>(load_be32(b));
        s.nextSet = static_cast<std::int32_t>(load_be32(b + 4));
        s.u = static_cast<std::int32_t>(load_be32(b + 8));
        s.data = static_cast<std::int32_t>(load_be32(b + 12));
        s.dataLen = static_cast<std::int32_t>(load_be32(b + 16));
        s.numMsgs = static_cast<std::int32_t>(load_be32(b + 20));
        s.invalid = static_cast<std::int32_t>(load_be32(b + 24));
        return s;
    }
    void encode(unsigned char* b) const {
        store_be32(b, static_cast<std::uint32_t>(setId));
        store_be32(b + 4, static_cast<std::uint32_t>(nextSet));
        store_be32(b + 8, static_cast<std::uint32_t>(u));
        store_be32(b + 12, static_cast<std::uint32_t>(data));
        store_be32(b + 16, static_cast<std::uint32_t>(dataLen));
        store_be32(b + 20, static_cast<std::uint32_t>(numMsgs));
        store_be32(b + 24, static_cast<std::uint32_t>(invalid));
    }
};

struct MCMsgTDisk {
    std::int32_t msgId;
    std::int32_t msg;  // offset of the text within the set's text block
    std::int32_t invalid;

    static MCMsgTDisk decode(const unsigned char* b) {
        MCMsgTDisk m{};
        m.msgId = static_cast<std::int32_t>(load_be32(b));
        m.msg = static_cast<std::int32_t>(load_be32(b + 4));
        m.invalid = static_cast<std::int32_t>(load_be32(b + 8));
        return m;
    }
    void encode(unsigned char* b) const {
        store_be32(b, static_cast<std::uint32_t>(msgId));
        store_be32(b + 4, static_cast<std::uint32_t>(msg));
        store_be32(b + 8, static_cast<std::uint32_t>(invalid));
    }
};

}  // namespace alm
