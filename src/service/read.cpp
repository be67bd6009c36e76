// The request loop: reading frames, splitting arguments, dispatching, and how the loop ends.
#include "service/read.h"

#include <cstdlib>
#include <memory>

#include "messages/issuemsg.h"
#include "protocol/request.h"
#include "service/lookup.h"

namespace alm {

namespace {

enum class WordRead { Ok, Error, End };

// A short read counts as an error or end of file only when the stream says
// so; otherwise what arrived is used as it is.
WordRead readBytes(std::FILE* in, void* buffer, std::size_t length) {
    if (std::fread(buffer, 1, length, in) == length) return WordRead::Ok;
    if (std::ferror(in)) return WordRead::Error;
    if (std::feof(in)) return WordRead::End;
    return WordRead::Ok;
}

// Ends the process the way the protocol describes: at once, leaving the open
// plans to the operating system (no destructors or exit handlers run).
[[noreturn]] void endProcess(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

}  // namespace

void readerScanArguments(sll* list, char* area, std::uint32_t len, std::uint32_t numData) {
    sllAddNode(list, area);
    std::uint32_t p = 0;
    std::uint32_t c = 0;
    std::uint32_t j = 0;
    // c never falls behind p, so area[p] stays inside the area; p + 1 may be
    // len, which is the terminator past the area.
    while (c < len && j < numData) {
        if (area[p] == '\0') {
            ++p;
            sllAddNode(list, area + p);
            ++j;
            c += 2;
        } else {
            ++p;
            ++c;
        }
    }
}

ReadLoopStatus readerReadFrames(std::FILE* in) {
    for (;;) {
        if (std::feof(in)) return ReadLoopStatus::EndOfInput;

        // Word by word, since a read error on the id word ends the loop with its
        // own message.
        unsigned char raw[ALM_FRAME_HEADER_BYTES] = {};
        for (int i = 0; i < 6; ++i) {
            const WordRead word = readBytes(in, raw + 4 * i, 4);
            if (word == WordRead::Error) return i == 2 ? ReadLoopStatus::ReadErrorOnId : ReadLoopStatus::ReadError;
            if (word == WordRead::End) return ReadLoopStatus::EndOfInput;
        }

        Request req;
        static_cast<FrameHeader&>(req) = decodeHeader(raw);

        std::unique_ptr<char[]> area;
        std::unique_ptr<sll> args;
        if (req.numData != 0) {
            const std::uint32_t len = req.size - ALM_FRAME_HEADER_AFTER_SIZE;
            if (len > READER_MAX_AREA) return ReadLoopStatus::BadFrame;
            area = std::make_unique_for_overwrite<char[]>(std::size_t{len} + 1);
            area[len] = '\0';
            switch (readBytes(in, area.get(), len)) {
            case WordRead::Error:
                return ReadLoopStatus::ReadError;
            case WordRead::End:
                return ReadLoopStatus::EndOfInput;
            case WordRead::Ok:
                break;
            }
            args = sllCreate();
            readerScanArguments(args.get(), area.get(), len, req.numData);
            req.dataList = args.get();
        }

        readerLookupAndCall(req);
        if (req.exitRequested) return ReadLoopStatus::ExitRequested;
    }
}

void readerServe(std::FILE* in) {
    switch (readerReadFrames(in)) {
    case ReadLoopStatus::EndOfInput:
        return;
    case ReadLoopStatus::ExitRequested:
        endProcess(0);
    case ReadLoopStatus::ReadErrorOnId:
        issuemsg(1, 2216, 9, MSG_END);
        endProcess(-1);
    case ReadLoopStatus::ReadError:
    case ReadLoopStatus::BadFrame:
        endProcess(-1);
    }
}

void readerReadLoop() { readerServe(stdin); }

}  // namespace alm
