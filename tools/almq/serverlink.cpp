#include "serverlink.h"

#include <chrono>
#include <cstring>

#include "util/endian.h"

namespace alm {
namespace {

constexpr std::size_t kRecordBytes = 512;
constexpr std::size_t kMaxBodyBytes = std::size_t{1} << 30;

std::string header_bytes(const FrameHeader& h) { return encodeHeader(h); }

}  // namespace

std::string ServerLink::describe(ClientStatus st, const char* what) {
    std::string text = server_ + ": " + what + ": ";
    switch (st) {
        case ClientStatus::Eof: {
            text += "the server ended";
            int code = 0;
            if (client_.waitExit(code, 2000) == ClientStatus::Ok) {
                text += code >= 0 ? " with exit status " + std::to_string(code)
                                  : " on signal " + std::to_string(-code);
            }
            return text;
        }
        case ClientStatus::Timeout:
            return text + "no answer within " + std::to_string(timeoutMs_ / 1000) + " s";
        case ClientStatus::IoError:
        case ClientStatus::SpawnFailed: return text + std::strerror(client_.lastErrno());
        case ClientStatus::BadGreeting: return text + "not an almread server (wrong greeting)";
        case ClientStatus::BadFrame: return text + "malformed reply frame";
        case ClientStatus::NotRunning: return text + "the server is not running";
        case ClientStatus::Ok: break;
    }
    return text + clientStatusName(st);
}

bool ServerLink::start(const std::string& server, std::string& error) {
    server_ = server;
    client_.setMaxBodyBytes(kMaxBodyBytes);
    SpawnOptions options;
    options.captureStderr = true;
    ClientStatus st = client_.start(server, {server}, options);
    if (st != ClientStatus::Ok) {
        error = describe(st, "cannot start");
        return false;
    }
    relay_.start(client_.stderrFd(), stderr);
    st = client_.readGreeting(timeoutMs_);
    if (st != ClientStatus::Ok) {
        error = describe(st, "no greeting");
        return false;
    }
    return true;
}

bool ServerLink::checkId(const FrameHeader& h, std::uint32_t id, std::string& error) {
    if (h.id == id) return true;
    error = server_ + ": reply carries id " + std::to_string(h.id) + ", expected " + std::to_string(id);
    return false;
}

void ServerLink::keep(std::uint32_t type, std::uint32_t id, std::string bytes) {
    if (keepFrames_) frames_.push_back({type, id, std::move(bytes)});
}

bool ServerLink::call(std::uint32_t type, const std::vector<std::string>& args, Reply& reply,
                      std::string& error) {
    const std::uint32_t id = nextId_++;
    ClientStatus st = client_.send(type, id, args);
    if (st != ClientStatus::Ok) {
        error = describe(st, "cannot send request");
        return false;
    }
    st = client_.readReply(reply, timeoutMs_);
    if (st != ClientStatus::Ok) {
        error = describe(st, "no reply");
        return false;
    }
    std::string bytes = header_bytes(reply.header);
    bytes.append(reinterpret_cast<const char*>(reply.body()), reply.bodySize());
    keep(type, id, std::move(bytes));
    return checkId(reply.header, id, error);
}

bool ServerLink::callRecords(std::uint32_t type, const std::vector<std::string>& args,
                             const RecordHandler& onRecord, std::uint32_t& count, std::string& error) {
    using Clock = std::chrono::steady_clock;
    const std::uint32_t id = nextId_++;
    ClientStatus st = client_.send(type, id, args);
    if (st != ClientStatus::Ok) {
        error = describe(st, "cannot send request");
        return false;
    }
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs_);
    auto left = [&] {
        const auto ms = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        return ms > 0 ? static_cast<int>(ms) : 0;
    };
    FrameHeader header;
    st = client_.readHeader(header, timeoutMs_);
    if (st == ClientStatus::Ok && (header.size < 20 || header.size - 20 > kMaxBodyBytes)) {
        st = ClientStatus::BadFrame;
    }
    if (st != ClientStatus::Ok) {
        error = describe(st, "no reply");
        return false;
    }
    const std::size_t body = header.size - 20;
    const bool records = header.dataType == 1 && header.bytesPerRecord == kRecordBytes &&
                         body / kRecordBytes == header.numData;
    std::string frame = keepFrames_ ? header_bytes(header) : std::string();
    std::size_t done = 0;
    // Records go out only once the reply is known to answer this request.
    if (records && header.id == id) {
        unsigned char rec[kRecordBytes];
        for (std::uint32_t i = 0; i < header.numData && st == ClientStatus::Ok; ++i) {
            st = client_.readExact(rec, sizeof rec, left());
            if (st != ClientStatus::Ok) break;
            if (keepFrames_) frame.append(reinterpret_cast<const char*>(rec), sizeof rec);
            onRecord(rec);
            done += sizeof rec;
        }
    }
    // Whatever else the body holds is read whole.
    if (st == ClientStatus::Ok && done < body) {
        std::string rest(body - done, '\0');
        st = client_.readExact(rest.data(), rest.size(), left());
        frame += rest;
    }
    if (st != ClientStatus::Ok) {
        error = describe(st, "no reply");
        return false;
    }
    keep(type, id, std::move(frame));
    if (!checkId(header, id, error)) return false;
    if (header.numData != 0 && !records) {
        error = "unexpected reply to the query (" + std::to_string(header.numData) + " items of " +
                std::to_string(header.bytesPerRecord) + " bytes)";
        return false;
    }
    count = header.numData;
    return true;
}

// The dependency reply may announce more records than follow it, so a
// no-operation request goes right behind the query: its 24-byte reply
// (size word 20, then type 0 and our id) marks the end of the records. A
// record never starts with the size word 20, as its first word is a record
// type code. Whatever follows the header, at least 24 bytes will come, and
// after a record at least 24 more: so each read takes the rest of a record
// together with the head of what follows it, and never waits for bytes that
// the server will not send.
bool ServerLink::callStreamed(const std::vector<std::string>& args, StreamedReply& reply,
                              const RecordHandler& onRecord, std::string& error) {
    const std::uint32_t id = nextId_++;
    const std::uint32_t fence = nextId_++;
    std::string requests = encodeRequest(REQ_DEPENDENCIES, id, args);
    requests += encodeRequest(REQ_NOP, fence, {});
    ClientStatus st = client_.sendRaw(requests);
    if (st != ClientStatus::Ok) {
        error = describe(st, "cannot send request");
        return false;
    }
    st = client_.readHeader(reply.header, timeoutMs_);
    if (st != ClientStatus::Ok) {
        error = describe(st, "no reply");
        return false;
    }
    if (!checkId(reply.header, id, error)) return false;
    if (reply.header.dataType != 1 || reply.header.bytesPerRecord != kRecordBytes) {
        error = server_ + ": the dependency reply is not a reply of 512-byte records";
        return false;
    }
    reply.count = 0;
    std::string frame = keepFrames_ ? header_bytes(reply.header) : std::string();
    // A record, then the head of what follows it.
    unsigned char buf[kRecordBytes + ALM_FRAME_HEADER_BYTES];
    unsigned char* const head = buf + kRecordBytes;
    st = client_.readExact(head, ALM_FRAME_HEADER_BYTES, timeoutMs_);
    while (st == ClientStatus::Ok) {
        if (load_be32(head) == 20) {
            keep(REQ_DEPENDENCIES, id, std::move(frame));
            keep(REQ_NOP, fence, std::string(reinterpret_cast<const char*>(head), ALM_FRAME_HEADER_BYTES));
            if (load_be32(head + 8) != fence) {
                error = server_ + ": the dependency reply ended in an unexpected frame";
                return false;
            }
            return true;
        }
        std::memcpy(buf, head, ALM_FRAME_HEADER_BYTES);
        st = client_.readExact(buf + ALM_FRAME_HEADER_BYTES, kRecordBytes, timeoutMs_);
        if (st != ClientStatus::Ok) break;
        if (keepFrames_) frame.append(reinterpret_cast<const char*>(buf), kRecordBytes);
        onRecord(buf);
        ++reply.count;
    }
    error = describe(st, "incomplete dependency reply");
    return false;
}

bool ServerLink::finish(std::string& error) {
    client_.closeInput();
    int code = 0;
    const ClientStatus st = client_.waitExit(code, timeoutMs_);
    relay_.stop();  // the server's last words before almq's own
    if (st != ClientStatus::Ok) {
        error = describe(st, "does not stop");
        return false;
    }
    if (code != 0) {
        error = server_ + ": the server ended with exit status " + std::to_string(code);
        return false;
    }
    return true;
}

}  // namespace alm
