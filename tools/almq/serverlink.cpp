#include "serverlink.h"

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
    ClientStatus st = client_.start(server, {server});
    if (st != ClientStatus::Ok) {
        error = describe(st, "cannot start");
        return false;
    }
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

// The dependency reply may announce more records than follow it, so a
// no-operation request goes right behind the query: its 24-byte reply
// (size word 20, then type 0 and our id) marks the end of the records. A
// record never starts with the size word 20, as its first word is a record
// type code. Whatever follows the header, at least 24 bytes will come, and
// after a record at least 24 more: so each read takes the rest of a record
// together with the head of what follows it, and never waits for bytes that
// the server will not send.
bool ServerLink::callStreamed(const std::vector<std::string>& args, StreamedReply& reply,
                              std::string& error) {
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
    reply.records.clear();
    unsigned char head[ALM_FRAME_HEADER_BYTES];
    st = client_.readExact(head, sizeof head, timeoutMs_);
    while (st == ClientStatus::Ok) {
        if (load_be32(head) == 20) {
            std::string frame = header_bytes(reply.header);
            frame.append(reinterpret_cast<const char*>(reply.records.data()), reply.records.size());
            keep(REQ_DEPENDENCIES, id, std::move(frame));
            keep(REQ_NOP, fence, std::string(reinterpret_cast<const char*>(head), sizeof head));
            if (load_be32(head + 8) != fence) {
                error = server_ + ": the dependency reply ended in an unexpected frame";
                return false;
            }
            return true;
        }
        const std::size_t at = reply.records.size();
        reply.records.resize(at + kRecordBytes + sizeof head);
        unsigned char* rec = reply.records.data() + at;
        std::memcpy(rec, head, sizeof head);
        st = client_.readExact(rec + sizeof head, kRecordBytes, timeoutMs_);
        std::memcpy(head, rec + kRecordBytes, sizeof head);
        reply.records.resize(at + kRecordBytes);
    }
    error = describe(st, "incomplete dependency reply");
    return false;
}

bool ServerLink::finish(std::string& error) {
    client_.closeInput();
    int code = 0;
    const ClientStatus st = client_.waitExit(code, timeoutMs_);
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
