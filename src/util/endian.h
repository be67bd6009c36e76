// Explicit byte-order access to unaligned bytes: little-endian for the plan
// file on disk, big-endian for the wire. Never cast pointers onto raw bytes.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace alm {

// One load or store and at most one byte swap each: these run for every
// field of every record a listing sends.
inline std::uint16_t byte_swap16(std::uint16_t v) { return static_cast<std::uint16_t>((v >> 8) | (v << 8)); }
inline std::uint32_t byte_swap32(std::uint32_t v) {
    return (v >> 24) | ((v >> 8) & 0xFF00u) | ((v << 8) & 0xFF0000u) | (v << 24);
}

template <std::endian order>
inline std::uint16_t to_order16(std::uint16_t v) { return std::endian::native == order ? v : byte_swap16(v); }
template <std::endian order>
inline std::uint32_t to_order32(std::uint32_t v) { return std::endian::native == order ? v : byte_swap32(v); }

template <std::endian order>
inline std::uint16_t load16(const void* p) {
    std::uint16_t v;
    std::memcpy(&v, p, sizeof v);
    return to_order16<order>(v);
}
template <std::endian order>
inline std::uint32_t load32(const void* p) {
    std::uint32_t v;
    std::memcpy(&v, p, sizeof v);
    return to_order32<order>(v);
}
template <std::endian order>
inline void store16(void* p, std::uint16_t v) {
    v = to_order16<order>(v);
    std::memcpy(p, &v, sizeof v);
}
template <std::endian order>
inline void store32(void* p, std::uint32_t v) {
    v = to_order32<order>(v);
    std::memcpy(p, &v, sizeof v);
}

inline std::uint16_t load_le16(const void* p) { return load16<std::endian::little>(p); }
inline std::uint32_t load_le32(const void* p) { return load32<std::endian::little>(p); }
inline void store_le16(void* p, std::uint16_t v) { store16<std::endian::little>(p, v); }
inline void store_le32(void* p, std::uint32_t v) { store32<std::endian::little>(p, v); }

inline std::uint16_t load_be16(const void* p) { return load16<std::endian::big>(p); }
inline std::uint32_t load_be32(const void* p) { return load32<std::endian::big>(p); }
inline void store_be16(void* p, std::uint16_t v) { store16<std::endian::big>(p, v); }
inline void store_be32(void* p, std::uint32_t v) { store32<std::endian::big>(p, v); }

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
