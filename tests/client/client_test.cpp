// The client library against small stand-in servers (sh, cat, head).
#include "client/almclient.h"

#include <signal.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

namespace alm {
namespace {

constexpr int kWaitMs = 20000;

#define ASSERT_OK(expr) ASSERT_EQ(clientStatusName(expr), std::string("Ok"))
#define EXPECT_STATUS(expr, st) EXPECT_EQ(clientStatusName(expr), std::string(clientStatusName(st)))

// A server made of one shell command line.
ClientStatus startShell(AlmClient& c, const std::string& script, const SpawnOptions& opts = {}) {
    return c.start("/bin/sh", {"sh", "-c", script}, opts);
}

// printf octal escapes for a header (dash's printf has no \x).
std::string octal(const std::string& bytes) {
    std::string out;
    char buf[8];
    for (unsigned char b : bytes) {
        std::snprintf(buf, sizeof buf, "\\%03o", b);
        out += buf;
    }
    return out;
}

int finish(AlmClient& c) {
    c.closeInput();
    int code = -1000;
    EXPECT_STATUS(c.waitExit(code, kWaitMs), ClientStatus::Ok);
    return code;
}

TEST(Frames, EncodeAndDecode) {
    FrameHeader h;
    h.size = 0x01020304;
    h.type = 5;
    h.id = 0xA0B0C0D0;
    h.numData = 2;
    h.bytesPerRecord = 512;
    h.dataType = 1;
    const std::string bytes = encodeHeader(h);
    EXPECT_EQ(bytes, std::string("\x01\x02\x03\x04\0\0\0\x05\xA0\xB0\xC0\xD0\0\0\0\x02\0\0\x02\0\0\0\0\x01", 24));
    const FrameHeader back = decodeHeader(reinterpret_cast<const unsigned char*>(bytes.data()));
    EXPECT_EQ(encodeHeader(back), bytes);

    EXPECT_EQ(encodeRequest(6, 7, {"12", "", "job"}),
              std::string("\0\0\0\x1C\0\0\0\x06\0\0\0\x07\0\0\0\x03", 16) + std::string(8, '\0') +
                  std::string("12\0\0job\0", 8));
}

TEST(Client, EchoedRequestReadsBackAsAFrame) {
    AlmClient c;
    ASSERT_OK(c.start("/bin/cat"));
    ASSERT_OK(c.send(2, 99, {"plans/current", "", "x"}));
    Reply r;
    ASSERT_OK(c.readReply(r, kWaitMs));
    EXPECT_EQ(r.header.id, 99u);
    EXPECT_EQ(r.header.numData, 3u);
    EXPECT_EQ(r.strings(), (std::vector<std::string>{"plans/current", "", "x"}));
    EXPECT_EQ(finish(c), 0);
}

TEST(Client, RecordsAndPartialBodies) {
    FrameHeader h;
    h.size = 20 + 3 * 4;
    h.numData = 3;
    h.bytesPerRecord = 4;
    h.dataType = 1;
    // Only two and a half records follow before the output ends.
    AlmClient c;
    ASSERT_OK(startShell(c, "printf '" + octal(encodeHeader(h)) + "AAAABBBBCC'"));
    Reply r;
    EXPECT_STATUS(c.readReply(r, kWaitMs), ClientStatus::Eof);
    EXPECT_EQ(r.bodySize(), 10u);
    EXPECT_EQ(r.recordCount(), 2u);
    ASSERT_NE(r.record(1), nullptr);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(r.record(1)), 4), "BBBB");
    EXPECT_EQ(r.record(2), nullptr);
    EXPECT_EQ(finish(c), 0);
}

TEST(Client, EnvironmentWorkDirAndStderr) {
    ::setenv("ALM_CLIENT_TEST_DROP", "dropped", 1);
    SpawnOptions opts;
    opts.extraEnv = {"ALM_CLIENT_TEST=one two", "HOME=/elsewhere"};
    opts.unsetEnv = {"ALM_CLIENT_TEST_DROP"};
    opts.workDir = "/tmp";
    opts.captureStderr = true;
    AlmClient c;
    ASSERT_OK(startShell(
        c, "printf '%s|%s|%s|' \"$ALM_CLIENT_TEST\" \"$HOME\" \"${ALM_CLIENT_TEST_DROP-unset}\"; pwd; "
           "echo oops >&2; exit 3",
        opts));
    std::string out, err;
    ASSERT_OK(c.readAll(out, kWaitMs));
    ASSERT_OK(c.readStderr(err, kWaitMs));
    EXPECT_EQ(out, "one two|/elsewhere|unset|/tmp\n");
    EXPECT_EQ(err, "oops\n");
    EXPECT_EQ(finish(c), 3);
    ::unsetenv("ALM_CLIENT_TEST_DROP");
}

// A stream of small pieces, read a few bytes at a time, arrives in order and
// whole; what is already read ahead counts as readable and ends up in readAll.
TEST(Client, SmallReadsOfALongStream) {
    AlmClient c;
    // 300,000 lines "000000".."299999": 2.1 MB in one stream.
    ASSERT_OK(startShell(c, "seq -f '%06g' 0 299999"));
    char line[7];
    for (int i = 0; i < 200000; ++i) {
        ASSERT_OK(c.readExact(line, sizeof line, kWaitMs)) << i;
        char expected[8];
        std::snprintf(expected, sizeof expected, "%06d\n", i);
        ASSERT_EQ(std::string(line, sizeof line), std::string(expected)) << i;
    }
    EXPECT_STATUS(c.waitReadable(0), ClientStatus::Ok);
    std::string rest;
    ASSERT_OK(c.readAll(rest, kWaitMs));
    ASSERT_EQ(rest.size(), 100000u * 7);
    EXPECT_EQ(rest.substr(0, 7), "200000\n");
    EXPECT_EQ(rest.substr(rest.size() - 7), "299999\n");
    std::size_t got = 99;
    EXPECT_STATUS(c.readExact(line, 1, kWaitMs, &got), ClientStatus::Eof);
    EXPECT_EQ(got, 0u);
    EXPECT_EQ(finish(c), 0);
}

TEST(Client, SendingToAServerThatClosedItsInputFails) {
    AlmClient c;
    ASSERT_OK(startShell(c, "exec 0<&-; exec sleep 30"));
    EXPECT_STATUS(c.sendRaw(std::string(4 << 20, 'x')), ClientStatus::IoError);
    EXPECT_EQ(c.lastErrno(), EPIPE);
    c.kill(SIGKILL);
}

}  // namespace
}  // namespace alm
