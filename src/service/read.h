// The request loop: reads frames, splits their arguments into a list and
// dispatches them one at a time.
//
// A request frame is six big-endian words (size, type, id, numData,
// bytesPerRecord, dataType) followed, only when numData != 0, by an argument
// area of size - 20 bytes holding NUL-terminated strings.
#pragma once

#include <cstdint>
#include <cstdio>

#include "protocol/sll.h"

namespace alm {

// Largest argument area served, a deliberate limit: a larger one (or a size
// below 20 with arguments, which wraps) ends the process with status 255,
// without a reply.
inline constexpr std::uint32_t READER_MAX_AREA = 1u << 20;

enum class ReadLoopStatus {
    EndOfInput,     // end of file, also in the middle of a frame
    ReadError,      // read error on a header word other than id, or on the area
    ReadErrorOnId,  // read error on the id word
    BadFrame,       // an argument area that cannot be served
    ExitRequested,  // the exit request was handled
};

// Splits an argument area of len bytes into list, exactly as the protocol
// does: the start of the area first, then one node per NUL seen while a budget
// counter (+1 per byte, +2 per NUL) stays below len, at most numData of them.
// area must hold len + 1 bytes with area[len] == '\0': the node that may
// point just past the area then reads as an empty argument.
void readerScanArguments(sll* list, char* area, std::uint32_t len, std::uint32_t numData);

// Reads and handles frames from in until the input ends, fails, carries an
// unservable frame or asks to exit. Never ends the process itself.
ReadLoopStatus readerReadFrames(std::FILE* in);

// readerReadFrames, with the endings applied: returns at end of input; exits
// with status 0 on the exit request and -1 on read errors and bad frames (a
// read error on the id word issues message 9 of set 2216 first).
void readerServe(std::FILE* in);

// The service's loop on standard input.
void readerReadLoop();

}  // namespace alm
