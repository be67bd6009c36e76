// Reply framing on the reply stream: whole replies and streamed record replies.
#include "protocol/write.h"

#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "util/fdio.h"
#include "util/pages.h"

namespace alm {

namespace {

std::FILE* replyStream = nullptr;

std::FILE* out() { return replyStream ? replyStream : stdout; }

// Replies are gathered in chunks and leave with one system call per chunk:
// a record is put into its wire form where it will be sent from, and no
// stream buffer copies it again. Messages keep going through the C
// library's stream, which a reply flushes before its first byte.
constexpr std::size_t CHUNK_BYTES = 64u << 10;
// Four chunks in the pipe keep the server and its reader both busy; a
// deeper pipe needs a larger ring (below), whose pages a fresh server
// brings in one by one, and a short reply paid more for that than it gained.
constexpr std::size_t PIPE_BYTES = 256u << 10;

// Where standard output is a pipe, full chunks are handed to it by
// reference (vmsplice): the reader copies them out of our pages, and
// nothing copies them into the pipe. A page handed over must not change
// until the reader has taken it, so chunks rotate through a ring larger
// than the pipe: the pipe holds at most its size in bytes, so everything
// sent more than that many bytes ago has been read. Before a ring chunk
// is filled again, that is checked against the pipe's size as it is then;
// when it does not hold (a reader that enlarged the pipe), or for short
// flushes, the bytes are copied into the pipe by write as before. A reader
// that moved the pages on with splice or tee instead of reading them could
// see them change; the manual page says so.
constexpr std::size_t RING_CHUNKS = 6;  // 384 KiB: the pipe and two chunks more
constexpr std::size_t SPLICE_MIN_BYTES = 16u << 10;
alignas(4096) unsigned char ring[RING_CHUNKS * CHUNK_BYTES];
alignas(4096) unsigned char copied[CHUNK_BYTES];
std::uint64_t ringChunkEnd[RING_CHUNKS];  // stream position after each chunk's last send
bool ringTouched[RING_CHUNKS];
std::size_t ringNext = 0;
bool splicing = false;
std::uint64_t sentBytes = 0;  // reply bytes put into the pipe, by either way

unsigned char* pending = copied;
std::size_t pendingBytes = 0;

bool inRing(const unsigned char* p) { return p >= ring && p < ring + sizeof ring; }

// The size of the pipe on standard output, or -1 where it is no pipe (or
// the system cannot tell).
int pipeSize() {
#ifdef F_GETPIPE_SZ
    return ::fcntl(STDOUT_FILENO, F_GETPIPE_SZ);
#else
    return -1;
#endif
}

// Sends by reference what it can; false once that fails, leaving the
// rest (from *data, *length) to be copied.
bool spliceAll(const unsigned char*& data, std::size_t& length) {
#ifdef F_SETPIPE_SZ
    while (length > 0) {
        iovec iov{const_cast<unsigned char*>(data), length};
        const ssize_t n = ::vmsplice(STDOUT_FILENO, &iov, 1, 0);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        length -= static_cast<std::size_t>(n);
        sentBytes += static_cast<std::uint64_t>(n);
    }
    return true;
#else
    (void)data;
    (void)length;
    return false;
#endif
}

// True when some of the bytes went to the pipe by reference: their pages
// then belong to the pipe until it has been read past them.
bool writeAll(const unsigned char* data, std::size_t length) {
    if (replyStream != nullptr) {
        std::fwrite(data, 1, length, replyStream);
        return false;
    }
    const unsigned char* const start = data;
    if (splicing && inRing(data) && length >= SPLICE_MIN_BYTES && spliceAll(data, length)) return true;
    // Write errors are ignored, as for every reply: the reader has gone.
    if (write_full(STDOUT_FILENO, data, length) == 0) sentBytes += length;
    return data != start;
}

// The buffer the next chunk is gathered in: the next ring chunk when the
// pipe has surely taken what was last sent from it, else the copied one.
void startChunk() {
    pending = copied;
    if (!splicing) return;
    const int pipeBytes = pipeSize();
    if (pipeBytes <= 0) return;
    const std::size_t i = ringNext;
    if (ringTouched[i] && ringChunkEnd[i] + static_cast<std::uint64_t>(pipeBytes) > sentBytes) return;
    pending = ring + i * CHUNK_BYTES;
    ringNext = (i + 1) % RING_CHUNKS;
    if (!ringTouched[i]) {
        prefault(pending, CHUNK_BYTES);
        ringTouched[i] = true;
    }
}

// A buffer whose bytes were copied into the pipe is filled again at once,
// so short replies never leave it; one handed over by reference waits in
// the ring, and a long reply moves into the ring, where it can be.
void flushPending() {
    if (pendingBytes == 0) return;
    const bool handedOver = writeAll(pending, pendingBytes);
    if (handedOver) ringChunkEnd[(pending - ring) / CHUNK_BYTES] = sentBytes;
    const bool longReply = pendingBytes >= SPLICE_MIN_BYTES;
    pendingBytes = 0;
    if (handedOver || (longReply && !inRing(pending))) startChunk();
}

// Replies beyond this size bring the rest of the buffer in at once.
constexpr std::size_t SMALL_REPLY_BYTES = 16u << 10;
bool prefaulted = false;

unsigned char* reserve(std::size_t length) {
    if (pendingBytes == 0) std::fflush(out());
    if (!prefaulted && pendingBytes + length > SMALL_REPLY_BYTES) {
        prefault(copied, sizeof copied);
        prefaulted = true;
    }
    if (length > CHUNK_BYTES - pendingBytes) flushPending();
    unsigned char* at = pending + pendingBytes;
    pendingBytes += length;
    return at;
}

void put(const void* data, std::size_t length) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    if (length >= CHUNK_BYTES) {
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
    // A larger pipe takes a whole chunk in one call and lets the reader take
    // several in one read; where it cannot be had the default serves.
    if (pipeSize() > 0) {
        ::fcntl(STDOUT_FILENO, F_SETPIPE_SZ, static_cast<int>(PIPE_BYTES));
        splicing = true;
    }
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
