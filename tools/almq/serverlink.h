// One session with a server: start it, check its greeting, exchange
// requests and replies with increasing ids, and stop it. Every failure comes
// back as a one-line text; nothing is printed here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "client/almclient.h"
#include "stderrrelay.h"

namespace alm {

// Request types of the protocol.
enum RequestType : std::uint32_t {
    REQ_NOP = 0,
    REQ_EXIT = 1,
    REQ_OPEN = 2,
    REQ_CLOSE = 3,
    REQ_LOGS = 4,
    REQ_SCHEDULES = 5,
    REQ_JOBS = 6,
    REQ_DEPENDENCIES = 7,
    REQ_WORKSTATIONS = 8,
};

// A reply frame exactly as its bytes arrived, with the request it answers.
struct ReceivedFrame {
    std::uint32_t requestType = 0;
    std::uint32_t requestId = 0;
    std::string bytes;
};

// Receives the records of a reply one at a time, as they arrive; the bytes
// are valid during the call only.
using RecordHandler = std::function<void(const unsigned char* record)>;

// The dependency reply: its header, and how many records actually
// followed, which may be fewer than the header announces.
struct StreamedReply {
    FrameHeader header;
    std::size_t count = 0;
};

class ServerLink {
public:
    explicit ServerLink(int timeoutMs) : timeoutMs_(timeoutMs) {}

    bool start(const std::string& server, std::string& error);
    // Sends one request and reads its reply, which must carry the request's id.
    bool call(std::uint32_t type, const std::vector<std::string>& args, Reply& reply, std::string& error);
    // A query answered by one frame of 512-byte records, each handed to
    // onRecord as it arrives; the whole reply within the timeout, as for
    // call(). A reply of any other shape fails, unless it holds no records.
    bool callRecords(std::uint32_t type, const std::vector<std::string>& args, const RecordHandler& onRecord,
                     std::uint32_t& count, std::string& error);
    // The dependency query: its records handed to onRecord as they arrive,
    // up to the end that a no-operation request right behind it marks.
    bool callStreamed(const std::vector<std::string>& args, StreamedReply& reply, const RecordHandler& onRecord,
                      std::string& error);
    // Ends the session: closes the server's input and waits for its exit.
    bool finish(std::string& error);

    void keepFrames(bool on) { keepFrames_ = on; }
    const std::vector<ReceivedFrame>& frames() const { return frames_; }

private:
    std::string describe(ClientStatus st, const char* what);
    bool checkId(const FrameHeader& h, std::uint32_t id, std::string& error);
    void keep(std::uint32_t type, std::uint32_t id, std::string bytes);

    AlmClient client_;
    std::string server_;
    int timeoutMs_;
    std::uint32_t nextId_ = 1;
    bool keepFrames_ = false;
    std::vector<ReceivedFrame> frames_;
    // Declared after client_, so that it ends while the pipe is still open.
    StderrRelay relay_;
};

}  // namespace alm
