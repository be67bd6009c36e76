#include "service/read.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "protocol/sll.h"
#include "common/frames.h"

namespace alm {
namespace {

using test::header;
using test::InputStream;
using test::nopReply;
using test::ReplySink;
using test::request;

std::vector<std::string> scan(const std::string& areaBytes, std::uint32_t numData) {
    std::vector<char> area(areaBytes.begin(), areaBytes.end());
    area.push_back('\0');  // the terminator past the area the loop provides
    auto list = sllCreate();
    readerScanArguments(list.get(), area.data(), static_cast<std::uint32_t>(areaBytes.size()),
                        numData);
    std::vector<std::string> out;
    sllIterator it;
    sllStartIterator(list.get(), it);
    while (sllNextIterator(it)) {
        const char* arg = static_cast<const char*>(sllGetIteratorValue(it));
        // Every node lies inside the area or on the terminator just past it.
        EXPECT_GE(arg, area.data());
        EXPECT_LE(arg, area.data() + areaBytes.size());
        out.emplace_back(arg);
    }
    return out;
}

TEST(ArgumentScan, KeepsTheProtocolsBudgetCounter) {
    using S = std::vector<std::string>;
    struct Case {
        const char* what;
        std::string area;
        std::uint32_t numData;
        S nodes;
    };
    const std::vector<Case> cases = {
        {"one argument gains a node past the end", std::string("plans/x\0", 8), 1, {"plans/x", ""}},
        {"one short argument too", std::string("a\0", 2), 1, {"a", ""}},
        {"two arguments", std::string("1\0@\0", 4), 2, {"1", "@"}},
        {"three arguments", std::string("1\0cpu\0sch\0", 10), 3, {"1", "cpu", "sch"}},
        {"four with an empty fourth lose it", std::string("1\0c\0s\0\0", 7), 4, {"1", "c", "s"}},
        {"four with a non-empty fourth", std::string("1\0cpu\0sch\0job\0", 15), 4,
         {"1", "cpu", "sch", "job"}},
        {"four long ones", std::string("12345\0CPU1\0SCHED\0J\0", 19), 4,
         {"12345", "CPU1", "SCHED", "J"}},
        {"empty strings eat the budget", std::string("\0\0\0\0", 4), 4, {"", "", ""}},
        {"numData caps the nodes", std::string("a\0b\0c\0", 6), 1, {"a", "b"}},
        {"empty area", std::string(), 1, {""}},
        {"unterminated argument stops at the area's end", "abc", 1, {"abc"}},
    };
    for (const Case& tc : cases) EXPECT_EQ(scan(tc.area, tc.numData), tc.nodes) << tc.what;
}

TEST(ArgumentScan, NeverMoreThanNumDataPlusOneNodes) {
    std::mt19937 rng(20240607);
    for (int round = 0; round < 2000; ++round) {
        const int args = static_cast<int>(rng() % 8) + 1;
        std::string area;
        for (int i = 0; i < args; ++i) {
            area.append(rng() % 6, static_cast<char>('a' + i));
            area.push_back('\0');
        }
        const auto numData = static_cast<std::uint32_t>(rng() % 10 + 1);
        const auto nodes = scan(area, numData);
        EXPECT_LE(nodes.size(), numData + 1);
        EXPECT_GE(nodes.size(), 1u);
    }
}

struct LoopRun {
    ReadLoopStatus status;
    std::string out;
};

LoopRun run(const std::string& input) {
    ReplySink sink;
    InputStream in(input);
    const ReadLoopStatus st = readerReadFrames(in.get());
    return {st, sink.bytes()};
}

TEST(ReadLoop, SizeTwentyWithArgumentsHasAnEmptyArea) {
    const LoopRun r = run(header(20, 0, 5, 3) + request(0, 6, {}));
    EXPECT_EQ(r.out, nopReply(5) + nopReply(6));
}

// A stream that delivers `good` bytes of `data`, then fails with EIO.
struct FailingSource {
    std::string data;
    std::size_t good;
    std::size_t pos = 0;
};

ssize_t failingRead(void* cookie, char* buf, size_t size) {
    auto* src = static_cast<FailingSource*>(cookie);
    if (src->pos >= src->good) {
        errno = EIO;
        return -1;
    }
    const std::size_t n = std::min(size, src->good - src->pos);
    std::memcpy(buf, src->data.data() + src->pos, n);
    src->pos += n;
    return static_cast<ssize_t>(n);
}

std::FILE* failingStream(FailingSource& src) {
    cookie_io_functions_t io{};
    io.read = failingRead;
    std::FILE* f = fopencookie(&src, "r", io);
    if (f) std::setvbuf(f, nullptr, _IONBF, 0);
    return f;
}

TEST(ReadLoop, ReadErrorsByPosition) {
    const std::string frame = request(0, 4, {"arg"});
    struct Case {
        std::size_t good;
        ReadLoopStatus status;
    };
    const std::vector<Case> cases = {
        {0, ReadLoopStatus::ReadError},       {2, ReadLoopStatus::ReadError},
        {4, ReadLoopStatus::ReadError},       {8, ReadLoopStatus::ReadErrorOnId},
        {10, ReadLoopStatus::ReadErrorOnId},  {12, ReadLoopStatus::ReadError},
        {16, ReadLoopStatus::ReadError},      {20, ReadLoopStatus::ReadError},
        {24, ReadLoopStatus::ReadError},      {26, ReadLoopStatus::ReadError},
    };
    for (const Case& tc : cases) {
        FailingSource src{request(0, 1, {}) + frame, 24 + tc.good};
        ReplySink sink;
        std::FILE* in = failingStream(src);
        ASSERT_NE(in, nullptr);
        EXPECT_EQ(readerReadFrames(in), tc.status) << tc.good;
        EXPECT_EQ(sink.bytes(), nopReply(1)) << tc.good;
        std::fclose(in);
    }
}

// The endings of the loop, applied in a child process.
void serveFailing(std::string data, std::size_t good) {
    FailingSource src{std::move(data), good};
    ReplySink sink;
    readerServe(failingStream(src));
}

void serveBytes(const std::string& data) {
    InputStream in(data);
    ReplySink sink;
    readerServe(in.get());
}

TEST(ReadLoopDeathTest, EndingsExitWithTheirStatus) {
    const std::string nop = request(0, 1, {});
    // Read errors end with -1; only the id word has a message.
    EXPECT_EXIT(serveFailing(nop, 0), testing::ExitedWithCode(255), "^$");
    EXPECT_EXIT(serveFailing(nop, 4), testing::ExitedWithCode(255), "^$");
    EXPECT_EXIT(serveFailing(nop, 8), testing::ExitedWithCode(255), ".");
    EXPECT_EXIT(serveFailing(nop, 12), testing::ExitedWithCode(255), "^$");
    EXPECT_EXIT(serveFailing(request(0, 1, {"a"}), 24), testing::ExitedWithCode(255), "^$");
    EXPECT_EXIT(serveBytes(header(19, 0, 1, 1)), testing::ExitedWithCode(255), "^$");
    EXPECT_EXIT(serveBytes(request(1, 1, {})), testing::ExitedWithCode(0), "^$");
}

}  // namespace
}  // namespace alm
