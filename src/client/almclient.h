// Client side of the almread protocol: starts a server with pipes on its
// standard input and output, sends request frames and reads reply frames.
//
// Nothing here throws or raises SIGPIPE; every call answers a ClientStatus.
// Timeouts are in milliseconds for the whole call; a negative one waits
// forever.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/frame.h"

namespace alm {

enum class ClientStatus {
    Ok,
    Eof,          // the server closed its output
    Timeout,      // nothing (or not enough) arrived in time
    IoError,      // a system call failed; see AlmClient::lastErrno()
    BadGreeting,  // the first 13 bytes were not the greeting
    BadFrame,     // a reply header that cannot be served (size below 20, too large)
    NotRunning,   // no server started, or its pipe already closed
    SpawnFailed,  // fork or exec failed; see AlmClient::lastErrno()
};

const char* clientStatusName(ClientStatus status);

class Reply {
public:
    FrameHeader header;

    const unsigned char* body() const { return body_.get(); }
    std::size_t bodySize() const { return bodySize_; }
    // The body as strings, split at each NUL (a trailing piece without NUL
    // is kept too).
    std::vector<std::string> strings() const;
    // Records of header.bytesPerRecord bytes that the body holds in full.
    std::size_t recordCount() const;
    // Record i, or nullptr when the body does not hold it in full.
    const unsigned char* record(std::size_t i) const;

private:
    friend class AlmClient;
    std::unique_ptr<unsigned char[]> body_;
    std::size_t bodySize_ = 0;
};

struct SpawnOptions {
    std::vector<std::string> extraEnv;  // "NAME=value", replacing inherited ones
    std::vector<std::string> unsetEnv;  // names removed from the inherited environment
    std::string workDir;                // the child's working directory, if not empty
    int stdinFd = -1;                   // the child's stdin instead of a request pipe
    bool captureStderr = false;         // a pipe for the child's stderr
};

class AlmClient {
public:
    AlmClient() = default;
    ~AlmClient();  // closes the pipes; a server still running is killed and reaped
    AlmClient(const AlmClient&) = delete;
    AlmClient& operator=(const AlmClient&) = delete;

    // Starts program (path as for execv, relative to workDir when set) with
    // argv (argv[0] included; empty means {program}).
    ClientStatus start(const std::string& program, const std::vector<std::string>& argv = {},
                       const SpawnOptions& options = {});

    // Reads the 13 greeting bytes and checks them.
    ClientStatus readGreeting(int timeoutMs = -1);

    ClientStatus send(std::uint32_t type, std::uint32_t id, const std::vector<std::string>& args);
    ClientStatus sendRaw(std::string_view bytes);
    ClientStatus closeInput();
    // Stops reading: the server's later writes fail (its replies are lost).
    ClientStatus closeOutput();

    // Reads one whole reply. A header whose size is below 20 or whose body
    // would exceed maxBodyBytes answers BadFrame (header filled, body empty).
    // On Timeout or Eof in the body, reply holds the bytes that arrived.
    ClientStatus readReply(Reply& reply, int timeoutMs = -1);
    ClientStatus readHeader(FrameHeader& header, int timeoutMs = -1);
    // Reads exactly length bytes; *got (may be null) tells how many arrived.
    ClientStatus readExact(void* buffer, std::size_t length, int timeoutMs = -1,
                           std::size_t* got = nullptr);
    // Reads until the server closes its output.
    ClientStatus readAll(std::string& out, int timeoutMs = -1);
    // Ok when output (or its end) is ready to read within the timeout.
    ClientStatus waitReadable(int timeoutMs);
    // Everything the server wrote on stderr until it closed it (captureStderr).
    ClientStatus readStderr(std::string& out, int timeoutMs = -1);

    // Waits for the server to end: exitCode is its status, or minus the
    // signal that ended it. On Timeout the server keeps running.
    ClientStatus waitExit(int& exitCode, int timeoutMs = -1);
    // Sends a signal to a running server.
    ClientStatus kill(int signal);

    pid_t pid() const { return pid_; }
    // The read end of the server's stderr pipe (captureStderr), or -1.
    int stderrFd() const { return errFromServer_; }
    bool running() const { return pid_ > 0; }
    int lastErrno() const { return errno_; }
    void setMaxBodyBytes(std::size_t bytes) { maxBodyBytes_ = bytes; }

private:
    ClientStatus readFd(int fd, std::string& out, int timeoutMs);
    // Moves up to length buffered output bytes to dst; how many it moved.
    std::size_t takeBuffered(unsigned char* dst, std::size_t length);
    ClientStatus fail(int err);
    void closeFd(int& fd);

    pid_t pid_ = -1;
    int toServer_ = -1;
    int fromServer_ = -1;
    int errFromServer_ = -1;
    // Output read ahead of the caller, so that a stream of small records
    // costs one read per buffer rather than one per record.
    static constexpr std::size_t kReadAheadBytes = 64 * 1024;
    std::unique_ptr<unsigned char[]> readAhead_;
    std::size_t aheadPos_ = 0;
    std::size_t aheadLen_ = 0;
    int errno_ = 0;
    std::size_t maxBodyBytes_ = std::size_t{1} << 32;
};

}  // namespace alm
