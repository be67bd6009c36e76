// The open-plan handlers called in this process, for what the end-to-end
// tests cannot see: the version of the last open and malformed requests.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "client/almclient.h"
#include "files/home.h"
#include "service/files.h"
#include "service/sll.h"
#include "service/write.h"

namespace alm::filestest {
namespace {

// Captures the replies written while it lives.
class Captured {
public:
    Captured() : stream_(open_memstream(&data_, &size_)) { previous_ = readerSetOutput(stream_); }
    ~Captured() {
        readerSetOutput(previous_);
        if (stream_ != nullptr) std::fclose(stream_);
        std::free(data_);
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    std::string bytes() {
        std::fflush(stream_);
        return std::string(data_ != nullptr ? data_ : "", size_);
    }

private:
    char* data_ = nullptr;
    std::size_t size_ = 0;
    std::FILE* stream_;
    std::FILE* previous_ = nullptr;
};

// Calls a handler with string arguments, as the request loop would.
std::string call(void (*handler)(Request&), std::uint32_t id, std::vector<std::string> args) {
    Captured out;
    auto list = sllCreate();
    for (auto& a : args) sllAddNode(list.get(), a.data());
    Request req;
    req.type = 2;
    req.id = id;
    req.numData = static_cast<std::uint32_t>(args.size());
    req.dataList = args.empty() ? nullptr : list.get();
    handler(req);
    return out.bytes();
}

std::vector<std::string> bodyStrings(const std::string& frame) {
    std::vector<std::string> items;
    if (frame.size() < ALM_FRAME_HEADER_BYTES) return items;
    std::string cur;
    for (std::size_t i = ALM_FRAME_HEADER_BYTES; i < frame.size(); ++i) {
        if (frame[i] == '\0') {
            items.push_back(cur);
            cur.clear();
        } else {
            cur += frame[i];
        }
    }
    return items;
}

std::string openHandle(const std::string& path) {
    const auto items = bodyStrings(call(readerOpenAlmanack, 1, {path}));
    return items.size() == 9 && items[0] == "0" ? items[2] : std::string();
}

class InProcess : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(home_.ok());
        v2_ = home_.file("plans/v2");
        v1_ = home_.file("plans/v1");
        ASSERT_TRUE(buildPlan("header\nset sh_cpu_id A\nworkstation A\n", v2_));
        ASSERT_TRUE(buildPlan("header\nset sh_cpu_id A\nworkstation A\n", v1_, true));
    }
    void TearDown() override { readerCloseAllAlmanack(); }

    TempHome home_;
    std::string v2_, v1_;
};

TEST_F(InProcess, VersionOfTheLastSuccessfulOpen) {
    ASSERT_FALSE(openHandle(v1_).empty());
    EXPECT_EQ(alm_version, 0);
    ASSERT_FALSE(openHandle(v2_).empty());
    EXPECT_EQ(alm_version_of_last_open(), 1);
    EXPECT_TRUE(openHandle(home_.file("plans/missing")).empty());
    EXPECT_EQ(alm_version, 1);  // a failed open changes nothing
    ASSERT_FALSE(openHandle(v1_).empty());
    EXPECT_EQ(alm_version_of_last_open(), 0);
}

TEST_F(InProcess, WrongArgumentCountsWriteNothing) {
    EXPECT_EQ(call(readerOpenAlmanack, 1, {}), "");
    EXPECT_EQ(call(readerOpenAlmanack, 1, {v2_, v2_}), "");
    EXPECT_EQ(call(readerCloseAlmanack, 1, {}), "");
    EXPECT_EQ(call(readerCloseAlmanack, 1, {"1", "2"}), "");
    EXPECT_EQ(pListOfFiles, nullptr);
}

}  // namespace
}  // namespace alm::filestest
