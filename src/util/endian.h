// Explicit byte-order access to unaligned bytes: little-endian for the plan
// file on disk, big-endian for the wire. Never cast pointers onto raw bytes.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace alm {

inline std::uint16_t load_le16(const void* p) {
    const auto* b = static_cast<const unsigned char*>(p);
    return static_cast<std::uint16_t>(b[0] | (b[1] << 8));
}
inline std::uint32_t load_le32(const void* p) {
    const auto* b = static_cast<const unsigned char*>(p);
    return static_cast<std::uint32_t>(b[0]) | (static_cast<std::uint32_t>(b[1]) << 8) |
           (static_cast<std::uint32_t>(b[2]) << 16) | (static_cast<std::uint32_t>(b[3]) << 24);
}
inline void store_le16(void* p, std::uint16_t v) {
    auto* b = static_cast<unsigned char*>(p);
    b[0] = static_cast<unsigned char>(v);
    b[1] = static_cast<unsigned char>(v >> 8);
}
inline void store_le32(void* p, std::uint32_t v) {
    auto* b = static_cast<unsigned char*>(p);
    b[0] = static_cast<unsigned char>(v);
    b[1] = static_cast<unsigned char>(v >> 8);
    b[2] = static_cast<unsigned char>(v >> 16);
    b[3] = static_cast<unsigned char>(v >> 24);
}

inline std::uint16_t load_be16(const void* p) {
    const auto* b = static_cast<const unsigned char*>(p);
    return static_cast<std::uint16_t>((b[0] << 8) | b[1]);
}
inline std::uint32_t load_be32(const void* p) {
    const auto* b = static_cast<const unsigned char*>(p);
    return (static_cast<std::uint32_t>(b[0]) << 24) | (static_cast<std::uint32_t>(b[1]) << 16) |
           (static_cast<std::uint32_t>(b[2]) << 8) | static_cast<std::uint32_t>(b[3]);
}
inline void store_be16(void* p, std::uint16_t v) {
    auto* b = static_cast<unsigned char*>(p);
    b[0] = static_cast<unsigned char>(v >> 8);
    b[1] = static_cast<unsigned char>(v);
}
inline void store_be32(void* p, std::uint32_t v) {
    auto* b = static_cast<unsigned char*>(p);
    b[0] = static_cast<unsigned char>(v >> 24);
    b[1] = static_cast<unsigned char>(v >> 16);
    b[2] = static_cast<unsigned char>(v >> 8);
    b[3] = static_cast<unsigned char>(v);
}

// Host-order access (the in-memory form of plan records is host order).
inline std::uint16_t load_host16(const void* p) {
    std::uint16_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
inline std::uint32_t load_host32(const void* p) {
    std::uint32_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
inline void store_host16(void* p, std::uint16_t v) { std::memcpy(p, &v, sizeof v); }
inline void store_host32(void* p, std::uint32_t v) { std::memcpy(p, &v, sizeof v); }

}  // namespace alm
