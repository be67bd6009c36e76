// Reply framing on the reply stream: whole replies and streamed record replies.
#include "protocol/write.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstring>


namespace alm {

namespace {

std::FILE* replyStream = nullptr;

std::FILE* out() { return replyStream ? replyStream : stdout; }

constexpr std::size_t REPLY_BUFFER_BYTES = 1u << 20;

void writeHeaderWords(std::uint32_t size, std::uint32_t type, std::uint32_t id,
                      std::uint32_t numData, std::uint32_t bytesPer, std::uint32_t dataType) {
    unsigned char bytes[ALM_FRAME_HEADER_BYTES];
    storeHeader(bytes, FrameHeader{size, type, id, numData, bytesPer, dataType});
    std::fwrite(bytes, 1, sizeof bytes, out());
}

void writeZeros(std::uint32_t count) {
    static const unsigned char zeros[512] = {};
    while (count) {
        const std::uint32_t chunk = count < sizeof zeros ? count : sizeof zeros;
        std::fwrite(zeros, 1, chunk, out());
        count -= chunk;
    }
}

}  // namespace

std::FILE* readerSetOutput(std::FILE* stream) {
    std::FILE* previous = replyStream;
    replyStream = stream;
    return previous;
}

void readerInitOutput() {
    // The C library sizes a buffer it allocates itself by the descriptor's
    // block size (4 KiB on a pipe), whatever size is asked for: a long reply
    // would cost a system call every 4 KiB. Pages of this one that a short
    // reply never reaches are never touched.
    static char buffer[REPLY_BUFFER_BYTES];
    std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
#ifdef F_SETPIPE_SZ
    // A larger pipe takes a whole buffer in one write and lets the reader
    // take as much in one read; where it cannot be had the default serves.
    if (::fcntl(STDOUT_FILENO, F_GETPIPE_SZ) > 0)
        ::fcntl(STDOUT_FILENO, F_SETPIPE_SZ, static_cast<int>(REPLY_BUFFER_BYTES));
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
            if (runBytes) std::fwrite(run, 1, runBytes, out());
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
                std::fwrite(text, 1, std::strlen(text) + 1, out());
            } else {
                std::fputc('\0', out());
            }
        }
        flushRun();
    }
    std::fflush(out());
}

void readerWriteHeader(int type, int id, int numData, int bytesPer) {
    const auto count = static_cast<std::uint32_t>(numData);
    const auto per = static_cast<std::uint32_t>(bytesPer);
    writeHeaderWords(ALM_FRAME_HEADER_AFTER_SIZE + count * per, static_cast<std::uint32_t>(type),
                     static_cast<std::uint32_t>(id), count, per, 1);
}

void readerWriteBlock(const void* data, std::size_t length) {
    if (length) std::fwrite(data, 1, length, out());
}

void readerWriteTrailer() { std::fflush(out()); }

}  // namespace alm
