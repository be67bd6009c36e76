// The frame header that opens every request and reply, and the greeting.
//
// On the wire a header is six unsigned 32-bit big-endian words (size, type,
// id, numData, bytesPerRecord, dataType); size counts the five words after it
// and the body, so a frame is size + 4 bytes. Request bodies are
// NUL-terminated strings; reply bodies are strings (dataType 0) or numData
// records of bytesPerRecord bytes (dataType 1). The server says the greeting
// once, before its first reply.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace alm {

inline constexpr char ALM_GREETING[] = "AlmRead Lives";
inline constexpr std::size_t ALM_GREETING_BYTES = sizeof ALM_GREETING - 1;

// Bytes of a whole frame header, size word included.
inline constexpr std::uint32_t ALM_FRAME_HEADER_BYTES = 24;
// Bytes of a frame header after its size word: the five words type to dataType.
inline constexpr std::uint32_t ALM_FRAME_HEADER_AFTER_SIZE = 20;

struct FrameHeader {
    std::uint32_t size = 0;
    std::uint32_t type = 0;
    std::uint32_t id = 0;
    std::uint32_t numData = 0;
    std::uint32_t bytesPerRecord = 0;
    std::uint32_t dataType = 0;
};

// Stores the six words at bytes (ALM_FRAME_HEADER_BYTES of room).
void storeHeader(unsigned char* bytes, const FrameHeader& header);
// The header in the first ALM_FRAME_HEADER_BYTES of bytes, taken as it stands.
FrameHeader decodeHeader(const unsigned char* bytes);
// The 24 wire bytes of a header.
std::string encodeHeader(const FrameHeader& header);
// A whole request: size = 20 + area, numData = args.size(), bytesPerRecord
// and dataType 0, each argument followed by its NUL.
std::string encodeRequest(std::uint32_t type, std::uint32_t id,
                          const std::vector<std::string>& args);

}  // namespace alm
