// The open-plan handlers called in this process: handle lookup, the version
// of the last open, and the closing of every plan at the end.
#include <fcntl.h>
#include <unistd.h>

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

TEST_F(InProcess, HandleTextIsReadAsAtolReadsIt) {
    const std::string h = openHandle(v2_);
    ASSERT_FALSE(h.empty());
    readerFile* rf = readerFindFile(h.c_str());
    ASSERT_NE(rf, nullptr);
    EXPECT_EQ(rf->opened, 1);
    EXPECT_NE(rf->alm_ca, nullptr);
    EXPECT_EQ(std::string(rf->pathName), v2_);
    for (const std::string& same : {" " + h, "+" + h, h + "abc", "\t" + h + " 7"})
        EXPECT_EQ(readerFindFile(same.c_str()), rf) << same;
    for (const std::string& other : {std::string("0"), std::string(""), std::string("x") + h,
                                     "-" + h, std::string("99999999999999999999999")})
        EXPECT_EQ(readerFindFile(other.c_str()), nullptr) << other;
    EXPECT_EQ(readerFindFile(nullptr), nullptr);
}

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

TEST_F(InProcess, OpenPlansAreListedInOrderOfOpening) {
    const std::string a = openHandle(v2_);
    const std::string b = openHandle(v1_);
    const std::string c = openHandle(v2_);
    ASSERT_NE(pListOfFiles, nullptr);
    std::vector<void*> want{readerFindFile(a.c_str()), readerFindFile(b.c_str()),
                            readerFindFile(c.c_str())};
    std::vector<void*> got;
    sllIterator it;
    sllStartIterator(pListOfFiles.get(), it);
    while (sllNextIterator(it)) got.push_back(sllGetIteratorValue(it));
    EXPECT_EQ(got, want);

    const std::string reply = call(readerCloseAlmanack, 4, {b});
    EXPECT_EQ(reply.size(), 24u);
    got.clear();
    sllStartIterator(pListOfFiles.get(), it);
    while (sllNextIterator(it)) got.push_back(sllGetIteratorValue(it));
    EXPECT_EQ(got, (std::vector<void*>{want[0], want[2]}));
    EXPECT_EQ(readerFindFile(b.c_str()), nullptr);
}

TEST_F(InProcess, CloseAllReleasesEveryPlanThroughTheLibrary) {
    const std::string a = openHandle(v2_);
    const std::string b = openHandle(v1_);
    ASSERT_FALSE(a.empty());
    ASSERT_FALSE(b.empty());
    // Another process sees this one's presence locks...
    EXPECT_EQ(probeLock(v2_, 0, 1).pid, getpid());
    EXPECT_EQ(probeLock(v1_, 0, 1).pid, getpid());

    readerCloseAllAlmanack();
    // ...and, once all is closed, none at all.
    EXPECT_EQ(probeLock(v2_, 0, 1).type, F_UNLCK);
    EXPECT_EQ(probeLock(v1_, 0, 1).type, F_UNLCK);
    EXPECT_EQ(pListOfFiles, nullptr);
    EXPECT_EQ(readerFindFile(a.c_str()), nullptr);
    EXPECT_EQ(readerFindFile(b.c_str()), nullptr);
    // A second call with nothing open is harmless, and opening works again.
    readerCloseAllAlmanack();
    EXPECT_FALSE(openHandle(v2_).empty());
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
