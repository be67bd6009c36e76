// End to end: the dependency listing over a plan with every kind of
// dependency, unreadable targets, odd flag bytes and restart chains; a job
// listing whose plan is cut short while it is being sent.
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/runprogram.h"
#include "queries/plansession.h"

namespace alm::qtest {
namespace {

// "TYPE:name" for a record on the wire: its two type characters and the
// name that identifies it.
std::string label(const unsigned char* rec) {
    const std::string type{static_cast<char>(rec[0]), static_cast<char>(rec[1])};
    auto text = [&](int off, int width) {
        std::string s(reinterpret_cast<const char*>(rec + off), width);
        return s.substr(0, s.find_last_not_of(' ') + 1);
    };
    if (type == "SR" || type == "SD") return type + ":" + text(32, 16);
    if (type == "JR" || type == "JD") return type + ":" + text(32, 40);
    if (type == "MR" || type == "RR") return type + ":" + text(32, 8);
    if (type == "FR") return type + ":" + text(48, 28);
    return type + ":?";
}

// Reads a streamed reply: its header, then `records` records.
struct Listing {
    FrameHeader header;
    std::vector<std::string> labels;
    std::vector<Bytes> records;
};

Listing readListing(Server& s, std::uint32_t id, const std::vector<std::string>& args, std::size_t records) {
    Listing l;
    EXPECT_EQ(s.client().send(kDependencies, id, args), ClientStatus::Ok);
    EXPECT_EQ(s.client().readHeader(l.header, kWaitMs), ClientStatus::Ok);
    for (std::size_t i = 0; i < records; ++i) {
        Bytes rec(512);
        if (s.client().readExact(rec.data(), rec.size(), kWaitMs) != ClientStatus::Ok) break;
        l.labels.push_back(label(rec.data()));
        l.records.push_back(rec);
    }
    return l;
}

// The chain jobs live in a schedule of their own, which the queries below do
// not name, so they appear only as links of their chains.
const char* const kPlan = R"(
workstation A
workstation B
prompt GP
prompt LP
file A /tmp/f1
resource A R1
schedule A CHAIN
job C1
restart C2
dep prompt GP
job C2
job C3
link sj_restart_ptr rec 9999
schedule A PRE
job PJ
schedule A S1
dep sched A PRE
dep localprompt LP
dep prompt GP
dep file A /tmp/f1
dep resource A R1 2
dep job A PRE PJ
dep 0x09 resource A R1
dep 0x80 sched A PRE
dep 0x83 sched A PRE
dep 0x05 sched A PRE
dep 4 rec 9999
dep 3 rec 32768
dep 1 job A PRE PJ
job J1
dep localprompt LP
dep file A /tmp/f1
restart A CHAIN C1
job J2
restart A CHAIN C3
job J3
dep 0xA0 resource A R1
schedule A VERYLONGSCHED
job LJ
schedule B S1
job BJ
schedule B LOOP
job L1
restart B LOOP L1
)";

class Listings : public PlanSession {
protected:
    static void SetUpTestSuite() {
        buildSuitePlan(plan_, "deps", kPlan);
        buildSuitePlan(v1_, "old", "format v1\nworkstation A\nschedule A S\njob J\n");
    }
};

TEST_F(Listings, EveryKindInOrderWithChains) {
    const std::vector<std::string> expected = {
        "SR:S1",  "SD:PRE",  "MR:LP",  "MR:GP", "FR:/tmp/f1", "RR:R1", "JD:PJ", "SD:PRE",  // S1 and its dependencies
        "JR:J1",  "MR:LP",   "FR:/tmp/f1",                                                 // J1 and its dependencies
        "JR:C1",  "MR:GP",   "JR:C2",                                                      // J1's restart chain
        "JR:J2",  "JR:C3",                                                                 // a chain whose next link is unreadable
        "JR:J3",  "RR:R1",                                                                 // kind 32, high bit set
    };
    // Counted: S1 and its 12 entries whose flag is not 0x80; J1 and 2; C1
    // and 1; C2, J2, C3; J3 and 1.
    const Listing l = readListing(server_, 21, {handle_, "A", "S1", "@"}, expected.size());
    EXPECT_EQ(l.header.id, 21u);
    EXPECT_EQ(l.header.numData, 23u);
    EXPECT_EQ(l.header.size, 20u + 23u * 512u);
    EXPECT_EQ(l.header.bytesPerRecord, 512u);
    EXPECT_EQ(l.header.dataType, 1u);
    EXPECT_EQ(l.labels, expected);
    // Fewer records followed than announced: the next reply comes right after.
    EXPECT_TRUE(server_.nextIsNop(22));
}

TEST_F(Listings, DependencyEntriesAreLowHalvesOfTheirRecordNumbers) {
    Delivered d(plan_);
    const std::vector<SS_RECTYPE> s1 = d.schedules("A", "S1");
    ASSERT_EQ(s1.size(), 1u);
    const Listing l = readListing(server_, 23, {handle_, "A", "S1", "NONE"}, 8);
    ASSERT_EQ(l.records.size(), 8u);
    EXPECT_EQ(l.records[0], expectedScheduleDep(s1[0]));
    // Entry 11 names record 32768: 80 00 00 00 on the wire.
    EXPECT_EQ(slice(l.records[0].data(), 116 + 11 * 4, 4), (Bytes{0x80, 0x00, 0x00, 0x00}));
    EXPECT_EQ(slice(l.records[0].data(), 350, 13),
              (Bytes{3, 1, 2, 8, 33, 4, 0x09, 0x80, 0x83, 0x05, 4, 3, 1}));
    EXPECT_TRUE(server_.nextIsNop(24));
}

TEST_F(Listings, ScheduleWithoutDependenciesOrMatchingJobs) {
    const Listing l = readListing(server_, 25, {handle_, "A", "PRE", "NONE"}, 1);
    EXPECT_EQ(l.header.numData, 1u);
    EXPECT_EQ(l.labels, std::vector<std::string>{"SR:PRE"});
    EXPECT_TRUE(server_.nextIsNop(26));
}

TEST_F(Listings, PatternsSelectSchedulesAndJobs) {
    // Both workstations' S1; of their jobs only BJ has two characters
    // ending in J.
    const std::vector<std::string> expected = {"SR:S1", "SD:PRE", "MR:LP", "MR:GP", "FR:/tmp/f1",
                                               "RR:R1", "JD:PJ",  "SD:PRE", "SR:S1", "JR:BJ"};
    const Listing l = readListing(server_, 27, {handle_, "@", "S1", "?J"}, expected.size());
    EXPECT_EQ(l.header.numData, 13u + 1u + 1u);
    EXPECT_EQ(l.labels, expected);
    EXPECT_TRUE(server_.nextIsNop(35));
}

TEST_F(Listings, NameWidthFollowsTheLastOpenedPlan) {
    const Listing before = readListing(server_, 29, {handle_, "A", "VERYLONGSCHED", "@"}, 2);
    EXPECT_EQ(before.header.numData, 2u);
    EXPECT_EQ(before.labels, (std::vector<std::string>{"SR:VERYLONGSCHED", "JR:LJ"}));

    // After a version 0 plan is opened, names are cut to 8 characters, and
    // the cut schedule name no longer finds the jobs.
    ASSERT_FALSE(server_.open(v1_).empty());
    const Listing after = readListing(server_, 30, {handle_, "A", "VERYLONGSCHED", "@"}, 1);
    EXPECT_EQ(after.header.numData, 1u);
    EXPECT_EQ(after.labels, std::vector<std::string>{"SR:VERYLONGSCHED"});
    EXPECT_TRUE(server_.nextIsNop(31));

    ASSERT_FALSE(server_.open(plan_).empty());
    EXPECT_TRUE(server_.open(v1_ + ".missing").empty());  // a failed open changes nothing
    const Listing again = readListing(server_, 32, {handle_, "A", "VERYLONGSCHED", "@"}, 2);
    EXPECT_EQ(again.header.numData, 2u);
}

TEST_F(Listings, LoopingRestartChainEndsAfterAsManyLinksAsRecords) {
    // L1 restarts into itself: the chain is followed once per record in the
    // file, after the schedule and L1 itself.
    const auto records = static_cast<std::uint32_t>(std::filesystem::file_size(plan_) / 512);
    const Listing l = readListing(server_, 36, {handle_, "B", "LOOP", "@"}, 2 + records);
    EXPECT_EQ(l.header.numData, 2 + records);
    ASSERT_EQ(l.labels.size(), 2 + records);
    EXPECT_EQ(l.labels.back(), "JR:L1");
    EXPECT_TRUE(server_.nextIsNop(37));
}

TEST_F(Listings, VersionZeroPlan) {
    const std::string old = server_.open(v1_);
    ASSERT_FALSE(old.empty());
    Delivered d(v1_);
    const std::vector<SS_RECTYPE> s = d.schedules();
    const std::vector<SJ_RECTYPE> j = d.jobs();
    ASSERT_EQ(s.size(), 1u);
    ASSERT_EQ(j.size(), 1u);
    const Listing l = readListing(server_, 33, {old, "@", "@", "@"}, 2);
    EXPECT_EQ(l.header.numData, 2u);
    EXPECT_EQ(l.labels, (std::vector<std::string>{"SR:S", "JR:J"}));
    ASSERT_EQ(l.records.size(), 2u);
    EXPECT_EQ(l.records[0], expectedScheduleDep(s[0]));
    EXPECT_EQ(l.records[1], expectedJobDep(j[0]));
    EXPECT_TRUE(server_.nextIsNop(34));
}

// Another process truncates the plan while a long listing is on its way:
// the listing still holds as many records as its header announced (zeros
// for records that could no longer be read), and the server goes on. Each
// reply is far larger than the pipe and the server's buffer hold.
TEST(CutPlan, LongListingsStayWhole) {
    struct Case {
        std::uint32_t type;
        std::vector<std::string> patterns;
        std::vector<std::string> synth;  // almplan synth options
        std::uint32_t count;
        char code;  // first byte of each record sent whole
    };
    const Case cases[] = {
        {kJobs, {"@", "@", "@"}, {"--cpus", "1", "--scheds", "10", "--jobs", "2000"}, 20000, 'J'},
        {kSchedules, {"@", "@"}, {"--cpus", "1", "--scheds", "16000", "--jobs", "1"}, 16000, 'S'},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        const TempDir dir;
        const std::string plan = dir.file("big");
        std::vector<std::string> synth{"synth"};
        synth.insert(synth.end(), c.synth.begin(), c.synth.end());
        synth.push_back(plan);
        ASSERT_EQ(test::run_program(test::built_program("almplan"), synth).status, 0);
        Server s;
        ASSERT_TRUE(s.ok());
        std::vector<std::string> args{s.open(plan)};
        args.insert(args.end(), c.patterns.begin(), c.patterns.end());
        ASSERT_EQ(s.client().send(c.type, 41, args), ClientStatus::Ok);
        FrameHeader header;
        ASSERT_EQ(s.client().readHeader(header, kWaitMs), ClientStatus::Ok);
        ASSERT_EQ(header.numData, c.count);
        ASSERT_EQ(::truncate(plan.c_str(), 1000 * 512), 0);

        std::uint32_t whole = 0;
        std::uint32_t zeros = 0;
        Bytes rec(512);
        for (std::uint32_t i = 0; i < c.count; ++i) {
            ASSERT_EQ(s.client().readExact(rec.data(), rec.size(), kWaitMs), ClientStatus::Ok) << "record " << i;
            whole += rec[0] == static_cast<unsigned char>(c.code);
            zeros += rec == Bytes(512, 0);
        }
        EXPECT_EQ(whole + zeros, c.count);
        EXPECT_GT(whole, 0u);
        EXPECT_GT(zeros, c.count / 2);
        EXPECT_TRUE(s.nextIsNop(42));
        std::string err;
        EXPECT_EQ(s.finish(&err), 0) << err;
    }
}

}  // namespace
}  // namespace alm::qtest
