// The handlers called in this process, for what they write (or do not
// write) on malformed requests and unknown handles.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "queries/queries.h"
#include "service/frames.h"

namespace alm {
namespace {

struct Call {
    void (*handler)(Request&);
    std::uint32_t expectedArgs;
};
const Call kCalls[] = {{readerGetCpus, 2}, {readerGetSchedules, 3}, {readerGetJobs, 4}, {readerGetSchJobDep, 4}};

// What handler writes for a request declaring numData arguments and
// carrying args.
std::string written(void (*handler)(Request&), std::uint32_t numData, std::vector<std::string> args) {
    std::unique_ptr<sll> list = sllCreate();
    for (std::string& a : args) sllAddNode(list.get(), a.data());
    Request req;
    req.id = 77;
    req.numData = numData;
    req.dataList = numData ? list.get() : nullptr;
    test::ReplySink sink;
    handler(req);
    return sink.bytes();
}

TEST(QueryHandlers, WrongArgumentCountsWriteNothing) {
    for (const Call& c : kCalls) {
        for (std::uint32_t n : {0u, 1u, c.expectedArgs - 1, c.expectedArgs + 1, 40u}) {
            EXPECT_EQ(written(c.handler, n, std::vector<std::string>(n, "@")), "")
                << "expected " << c.expectedArgs << ", given " << n;
        }
    }
}

TEST(QueryHandlers, MissingArgumentsWriteNothing) {
    // The request declares the right count but fewer arguments arrived.
    for (const Call& c : kCalls) {
        EXPECT_EQ(written(c.handler, c.expectedArgs, std::vector<std::string>(c.expectedArgs - 1, "@")), "");
    }
}

TEST(QueryHandlers, UnknownHandlesGetEmptyRecordReplies) {
    for (const Call& c : kCalls) {
        for (const char* handle : {"0", "12345678", "", "x"}) {
            std::vector<std::string> args(c.expectedArgs, "@");
            args[0] = handle;
            EXPECT_EQ(written(c.handler, c.expectedArgs, args), test::header(20, 0, 77, 0, 512, 1)) << handle;
        }
    }
}

}  // namespace
}  // namespace alm
