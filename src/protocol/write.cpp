// Reply framing on the reply stream: whole replies and streamed record replies.
#include "protocol/write.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "util/pages.h"


namespace alm {

namespace {

std::FILE* replyStream = nullptr;

std::FILE* out() { return replyStream ? replyStream : stdout; }

// Replies are gathered here and leave with one write per megabyte: a record
// is put into its wire form where it will be sent from, and no stream
// buffer copies it again. Messages keep going through the C library's
// stream, which a reply flushes before its first byte.
constexpr std::size_t REPLY_BUFFER_BYTES = 64u << 10;
constexpr std::size_t PIPE_BYTES = 1u << 20;
unsigned char pending[REPLY_BUFFER_BYTES];
std::size_t pendingBytes = 0;

void writeAll(const unsigned char* data, std::size_t length) {
    if (replyStream != nullptr) {
        std::fwrite(data, 1, length, replyStream);
        return;
    }
    while (length > 0) {
        const ssize_t n = ::write(STDOUT_FILENO, data, length);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;  // write errors are ignored, as for every reply
        data += n;
        length -= static_cast<std::size_t>(n);
    }
}

void flushPending() {
    writeAll(pending, pendingBytes);
    pendingBytes = 0;
}

// Replies beyond this size bring the rest of the buffer in at once.
constexpr std::size_t SMALL_REPLY_BYTES = 16u << 10;
bool prefaulted = false;

unsigned char* reserve(std::size_t length) {
    if (pendingBytes == 0) std::fflush(out());
    if (!prefaulted && pendingBytes + length > SMALL_REPLY_BYTES) {
        prefault(pending, sizeof pending);
        prefaulted = true;
    }
    if (length > REPLY_BUFFER_BYTES - pendingBytes) flushPending();
    unsigned char* at = pending + pendingBytes;
    pendingBytes += length;
    return at;
}

void put(const void* data, std::size_t length) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    if (length >= REPLY_BUFFER_BYTES) {
        // What fills the buffer alone goes out from where it lies.
        if (pendingBytes == 0) std::fflush(out());
        flushPending();
        writeAll(bytes, length);
        return;
    }
    std::memcpy(reserve(length), bytes, length);
}

void finishReply() {
    flushPending();
    if (replyStream != nullptr) std::fflush(replyStream);
}

void writeHeaderWords(std::uint32_t size, std::uint32_t type, std::uint32_t id,
                      std::uint32_t numData, std::uint32_t bytesPer, std::uint32_t dataType) {
    storeHeader(reserve(ALM_FRAME_HEADER_BYTES), FrameHeader{size, type, id, numData, bytesPer, dataType});
}

void writeZeros(std::uint32_t count) {
    while (count) {
        const std::uint32_t chunk = count < 4096 ? count : 4096;
        std::memset(reserve(chunk), 0, chunk);
        count -= chunk;
    }
}

}  // namespace

std::FILE* readerSetOutput(std::FILE* stream) {
    finishReply();
    std::FILE* previous = replyStream;
    replyStream = stream;
    return previous;
}

void readerInitOutput() {
#ifdef F_SETPIPE_SZ
    // A larger pipe takes a whole buffer in one write and lets the reader
    // take as much in one read; where it cannot be had the default serves.
    if (::fcntl(STDOUT_FILENO, F_GETPIPE_SZ) > 0)
        ::fcntl(STDOUT_FILENO, F_SETPIPE_SZ, static_cast<int>(PIPE_BYTES));
#endif
}

void readerWrite(const Request& reply) {
    // Sizes wrap in 32 bits, as the size word does.
    std::uint32_t size = ALM_FRAME_HEADER_AFTER_SIZE;
    if (reply.dataType != 0) {
        size += reply.numData * reply.bytesPerRecord;
    } else if (reply.dataList) {
        sllIterator it;
        sllStartIterator(reply.dataList, it);
        while (sllNextIterator(it)) {
            const auto* item = static_cast<const char*>(sllGetIteratorValue(it));
            size += static_cast<std::uint32_t>((item ? std::strlen(item) : 0) + 1);
        }
    }

    writeHeaderWords(size, reply.type, reply.id, reply.numData, reply.bytesPerRecord,
                     reply.dataType);

    if (reply.dataList) {
        // Records that lie end to end in memory go out with one fwrite,
        // which a large run bypasses the stream buffer with.
        const unsigned char* run = nullptr;
        std::size_t runBytes = 0;
        auto flushRun = [&] {
            if (runBytes) put(run, runBytes);
            runBytes = 0;
        };
        sllIterator it;
        sllStartIterator(reply.dataList, it);
        while (sllNextIterator(it)) {
            const void* item = sllGetIteratorValue(it);
            if (reply.dataType != 0) {
                const auto* bytes = static_cast<const unsigned char*>(item);
                if (bytes && runBytes && bytes == run + runBytes) {
                    runBytes += reply.bytesPerRecord;
                } else {
                    flushRun();
                    if (bytes) {
                        run = bytes;
                        runBytes = reply.bytesPerRecord;
                    } else {
                        writeZeros(reply.bytesPerRecord);  // keeps the frame whole
                    }
                }
            } else if (item) {
                const auto* text = static_cast<const char*>(item);
                put(text, std::strlen(text) + 1);
            } else {
                *reserve(1) = 0;
            }
        }
        flushRun();
    }
    finishReply();
}

void readerWriteHeader(int type, int id, int numData, int bytesPer) {
    const auto count = static_cast<std::uint32_t>(numData);
    const auto per = static_cast<std::uint32_t>(bytesPer);
    writeHeaderWords(ALM_FRAME_HEADER_AFTER_SIZE + count * per, static_cast<std::uint32_t>(type),
                     static_cast<std::uint32_t>(id), count, per, 1);
}

void readerWriteBlock(const void* data, std::size_t length) {
    if (length) put(data, length);
}

unsigned char* readerReserveBlock(std::size_t length) { return reserve(length); }

void readerWriteTrailer() { finishReply(); }

}  // namespace alm
