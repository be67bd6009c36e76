#include "queries/recordreply.h"

#include <gtest/gtest.h>

#include <cstring>

#include "service/frames.h"

namespace alm {
namespace {

TEST(RecordBuffer, KeepsRecordsInOrderAcrossGrowth) {
    RecordBuffer records;
    unsigned char rec[512];
    for (int i = 0; i < 1000; ++i) {
        std::memset(rec, i & 0xFF, sizeof rec);
        rec[0] = static_cast<unsigned char>(i >> 8);
        unsigned char* copy = records.append(rec);
        ASSERT_NE(copy, nullptr);
        copy[511] = 0xEE;  // the copy returned is the one kept
    }
    ASSERT_EQ(records.count(), 1000u);
    const std::unique_ptr<sll> list = records.list();
    sllIterator it;
    sllStartIterator(list.get(), it);
    int i = 0;
    while (sllNextIterator(it)) {
        const auto* r = static_cast<const unsigned char*>(sllGetIteratorValue(it));
        EXPECT_EQ(r, records.record(i));
        EXPECT_EQ(r[0], i >> 8);
        EXPECT_EQ(r[1], i & 0xFF);
        EXPECT_EQ(r[510], i & 0xFF);
        EXPECT_EQ(r[511], 0xEE);
        ++i;
    }
    EXPECT_EQ(i, 1000);
}

TEST(RecordReply, HeaderAndRecordsAsOneFrame) {
    RecordBuffer records;
    unsigned char rec[512];
    for (int i = 0; i < 3; ++i) {
        std::memset(rec, 'a' + i, sizeof rec);
        records.append(rec);
    }
    const std::unique_ptr<sll> list = records.list();
    test::ReplySink sink;
    writeRecordReply(0x01020304, 3, list.get());
    const std::string expected = test::header(20 + 3 * 512, 0, 0x01020304, 3, 512, 1) + std::string(512, 'a') +
                                 std::string(512, 'b') + std::string(512, 'c');
    EXPECT_EQ(sink.bytes(), expected);
}

TEST(RecordReply, EmptyReplyIsTwentyFourBytes) {
    RecordBuffer records;
    const std::unique_ptr<sll> list = records.list();
    test::ReplySink sink;
    writeRecordReply(9, 0, list.get());
    EXPECT_EQ(sink.bytes(), test::header(20, 0, 9, 0, 512, 1));
}

}  // namespace
}  // namespace alm
