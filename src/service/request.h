// The frame record used for requests and replies alike. On the wire every
// numeric field is an unsigned 32-bit big-endian word, in this order.
#pragma once

#include <cstdint>

#include "service/sll.h"

namespace alm {

// Bytes of a frame header after its size word: the five words type to dataType.
inline constexpr std::uint32_t REQUEST_HEADER_AFTER_SIZE = 20;
// Bytes of a whole frame header, size word included.
inline constexpr std::uint32_t REQUEST_HEADER_BYTES = 24;

struct Request {
    std::uint32_t size = 0;
    std::uint32_t type = 0;
    std::uint32_t id = 0;
    std::uint32_t numData = 0;
    std::uint32_t bytesPerRecord = 0;
    std::uint32_t dataType = 0;
    // Request arguments (pointers into the loop's argument area) or reply
    // body items; null when there are none. Never owned by the Request.
    sll* dataList = nullptr;
    // Set by readerExit; the loop ends the process once the handler returns.
    bool exitRequested = false;
};

using readerHandler = void (*)(Request&);

}  // namespace alm
