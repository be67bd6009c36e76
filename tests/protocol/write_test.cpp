#include "protocol/write.h"

#include <gtest/gtest.h>

#include <string>

#include "common/frames.h"

namespace alm {
namespace {

using test::header;
using test::ReplySink;

TEST(ReplyFraming, StringReplies) {
    char ab[] = "ab";
    char empty[] = "";
    char longer[] = "schedlog/M9901010600";
    struct Case {
        const char* what;
        std::vector<char*> items;
        bool withList;
        std::string body;
    };
    const std::vector<Case> cases = {
        {"no list", {}, false, ""},
        {"empty list", {}, true, ""},
        {"strings and NULs", {ab, longer}, true, std::string("ab\0schedlog/M9901010600\0", 24)},
        {"absent item reads as empty", {ab, nullptr, empty}, true, std::string("ab\0\0\0", 5)},
    };
    for (const Case& tc : cases) {
        ReplySink sink;
        auto list = sllCreate();
        for (char* item : tc.items) sllAddNode(list.get(), item);
        Request reply;
        reply.size = 999;  // never taken from the record
        reply.id = 77;
        reply.numData = static_cast<std::uint32_t>(tc.items.size());
        reply.dataList = tc.withList ? list.get() : nullptr;
        readerWrite(reply);
        const auto size = static_cast<std::uint32_t>(20 + tc.body.size());
        EXPECT_EQ(sink.bytes(), header(size, 0, 77, reply.numData) + tc.body) << tc.what;
    }
}

TEST(ReplyFraming, RecordRepliesTakeTheirSizeFromTheHeaderFields) {
    // r1 and r2 apart, r1 and r1 + 4 end to end.
    const unsigned char bytes[12] = {1, 2, 3, 4, 9, 9, 9, 9, 5, 6, 7, 8};
    const unsigned char *r1 = bytes, *r2 = bytes + 8;
    struct Case {
        const char* what;
        std::uint32_t numData;
        std::vector<const unsigned char*> items;
        std::string body;
    };
    const std::vector<Case> cases = {
        {"two records", 2, {r1, r2}, "\x01\x02\x03\x04\x05\x06\x07\x08"},
        {"two records end to end", 2, {r1, r1 + 4}, "\x01\x02\x03\x04\x09\x09\x09\x09"},
        {"count 0 with an empty list", 0, {}, ""},
        // The size word follows numData even when the list disagrees.
        {"count larger than the list", 3, {r1}, "\x01\x02\x03\x04"},
        {"absent record keeps its room", 1, {nullptr}, std::string(4, '\0')},
    };
    for (const Case& tc : cases) {
        ReplySink sink;
        auto list = sllCreate();
        for (const unsigned char* item : tc.items)
            sllAddNode(list.get(), const_cast<unsigned char*>(item));
        Request reply;
        reply.id = 5;
        reply.numData = tc.numData;
        reply.bytesPerRecord = 4;
        reply.dataType = 1;
        reply.dataList = list.get();
        readerWrite(reply);
        EXPECT_EQ(sink.bytes(), header(20 + tc.numData * 4, 0, 5, tc.numData, 4, 1) + tc.body)
            << tc.what;
    }
}

TEST(ReplyFraming, StreamedReplies) {
    ReplySink sink;
    readerWriteHeader(0, 0x01020304, 3, 512);
    const std::string block(512, 'r');
    readerWriteBlock(block.data(), block.size());
    readerWriteBlock(block.data(), 0);
    readerWriteTrailer();
    // The header announces three records; only what was written follows.
    EXPECT_EQ(sink.bytes(), header(20 + 3 * 512, 0, 0x01020304, 3, 512, 1) + block);
}

TEST(ReplyFraming, StreamedHeaderSizeWrapsLikeTheWord) {
    ReplySink sink;
    readerWriteHeader(0, -1, -1, 512);
    readerWriteTrailer();
    EXPECT_EQ(sink.bytes(), header(20u + 0xFFFFFFFFu * 512u, 0, 0xFFFFFFFF, 0xFFFFFFFF, 512, 1));
}

}  // namespace
}  // namespace alm
