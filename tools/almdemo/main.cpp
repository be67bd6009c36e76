// almdemo SERVER: starts the server, checks its greeting, exchanges one
// no-operation request and reports what went over the pipes.
#include <cstdio>
#include <string>

#include "client/almclient.h"

namespace {

constexpr int kTimeoutMs = 10000;
constexpr std::uint32_t kRequestId = 0x2A;

int failed(const char* step, alm::ClientStatus st, const alm::AlmClient& client) {
    std::fprintf(stderr, "almdemo: %s: %s (errno %d)\n", step, alm::clientStatusName(st),
                 client.lastErrno());
    return 1;
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: almdemo /path/to/almread\n");
        return 2;
    }
    const std::string server = argv[1];
    alm::AlmClient client;

    alm::ClientStatus st = client.start(server, {server, "-v"});
    if (st != alm::ClientStatus::Ok) return failed("start", st, client);
    std::string banner;
    st = client.readAll(banner, kTimeoutMs);
    if (st != alm::ClientStatus::Ok) return failed("banner", st, client);
    int code = -1;
    client.waitExit(code, kTimeoutMs);
    std::printf("%s -v (exit status %d):\n%s", server.c_str(), code, banner.c_str());

    alm::AlmClient session;
    st = session.start(server);
    if (st != alm::ClientStatus::Ok) return failed("start", st, session);
    std::printf("started %s, pid %d\n", server.c_str(), static_cast<int>(session.pid()));
    st = session.readGreeting(kTimeoutMs);
    if (st != alm::ClientStatus::Ok) return failed("greeting", st, session);
    std::printf("greeting: \"%s\" (%zu bytes)\n", alm::ALM_GREETING, alm::ALM_GREETING_BYTES);

    st = session.send(0, kRequestId, {});
    if (st != alm::ClientStatus::Ok) return failed("send", st, session);
    std::printf("sent no-operation request: type 0, id %u, no arguments (24 bytes)\n", kRequestId);

    alm::Reply reply;
    st = session.readReply(reply, kTimeoutMs);
    if (st != alm::ClientStatus::Ok) return failed("reply", st, session);
    const alm::FrameHeader& h = reply.header;
    std::printf("reply: size %u, type %u, id %u, numData %u, bytesPerRecord %u, dataType %u "
                "(%zu bytes)\n",
                h.size, h.type, h.id, h.numData, h.bytesPerRecord, h.dataType,
                alm::ALM_FRAME_HEADER_BYTES + reply.bodySize());

    session.closeInput();
    st = session.waitExit(code, kTimeoutMs);
    if (st != alm::ClientStatus::Ok) return failed("exit", st, session);
    std::printf("closed its input: server exited with status %d\n", code);
    return h.id == kRequestId && code == 0 ? 0 : 1;
}
