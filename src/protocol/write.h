// Reply framing on standard output.
//
// A reply is six big-endian header words (size, type, id, numData,
// bytesPerRecord, dataType) and a body of size - 20 bytes. The body is either
// NUL-terminated strings (dataType 0) or numData records of bytesPerRecord
// bytes (dataType 1). Write errors are ignored; whole replies are flushed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "protocol/request.h"

namespace alm {

// Redirects replies (tests, fuzzing); nullptr means stdout. Returns the
// previous stream (nullptr when it was stdout).
std::FILE* readerSetOutput(std::FILE* out);
// Raises the size of the pipe on standard output, where it is one; call
// before anything is written.
void readerInitOutput();

// Writes a whole reply described by reply and flushes. The size word is
// computed, never taken from reply.size: for dataType != 0 it is
// 20 + numData * bytesPerRecord and the body is bytesPerRecord bytes from
// each list item; for dataType 0 each item is written as a string and its NUL
// (a null item as a single NUL). Without a list there is no body.
void readerWrite(const Request& reply);

// Streamed record reply: a header announcing numData records of bytesPer
// bytes (dataType 1), then blocks, then the trailer, which flushes. Nothing
// checks that as many blocks follow as the header announced.
void readerWriteHeader(int type, int id, int numData, int bytesPer);
void readerWriteBlock(const void* data, std::size_t length);
// Room for length bytes (at most 1 MiB) of a streamed reply, to be filled
// before the next call here: a record can be put into its wire form where it
// will be sent from.
unsigned char* readerReserveBlock(std::size_t length);
void readerWriteTrailer();

}  // namespace alm
