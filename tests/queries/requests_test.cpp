// End to end: what the queries answer to malformed requests, unknown
// handles, empty results, patterns and version 0 plans.
#include <gtest/gtest.h>

#include <unistd.h>

#include <string>
#include <vector>

#include "queries/plansession.h"

namespace alm::qtest {
namespace {

std::string nameAt(const unsigned char* rec, int off, int width) {
    std::string s(reinterpret_cast<const char*>(rec + off), width);
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

// Names of the records of a reply, read from the field at off.
std::vector<std::string> names(const Reply& r, int off, int width) {
    std::vector<std::string> out;
    for (std::size_t i = 0; i < r.recordCount(); ++i) out.push_back(nameAt(r.record(i), off, width));
    return out;
}

const char* const kPlan = R"(
workstation A1
workstation A2
workstation B1
workstation XY
schedule A1 DAILY
job LOAD
job LOAD2
job REPORT
schedule A1 WEEKLY
job LOAD
schedule A2 DAILY
job EXTRACT
schedule B1 S7
)";

class Requests : public PlanSession {
protected:
    static void SetUpTestSuite() {
        buildSuitePlan(plan_, "plan", kPlan);
        buildSuitePlan(v1_, "old", kPlan, true);
    }
};

TEST_F(Requests, WrongArgumentCountsGetNoReply) {
    struct Case {
        std::uint32_t type;
        std::size_t args;
    };
    const Case cases[] = {{kCpus, 0},      {kCpus, 1},      {kCpus, 3},      {kSchedules, 2}, {kSchedules, 4},
                          {kJobs, 3},      {kJobs, 5},      {kDependencies, 3}, {kDependencies, 5},
                          {kSchedules, 0}, {kDependencies, 1}};
    std::uint32_t id = 100;
    for (const Case& c : cases) {
        std::vector<std::string> args(c.args, "@");
        if (!args.empty()) args[0] = handle_;
        ASSERT_EQ(server_.client().send(c.type, id, args), ClientStatus::Ok);
        EXPECT_TRUE(server_.nextIsNop(id + 1)) << "type " << c.type << " with " << c.args << " arguments";
        id += 2;
    }
}

// The framing loses an empty fourth argument; the request still declares
// four, and the missing job pattern matches every job.
TEST_F(Requests, EmptyFourthArgumentIsAnsweredLikeAt) {
    for (std::uint32_t type : {kJobs, kDependencies}) {
        Reply empty;
        Reply at;
        ASSERT_EQ(server_.ask(type, 200 + type, {handle_, "@", "@", ""}, empty), ClientStatus::Ok);
        ASSERT_EQ(server_.ask(type, 210 + type, {handle_, "@", "@", "@"}, at), ClientStatus::Ok);
        expectRecordReply(empty, 200 + type, at.header.numData);
        EXPECT_GT(at.header.numData, 0u) << "type " << type;
        EXPECT_EQ(bytesOf(empty.body(), empty.bodySize()), bytesOf(at.body(), at.bodySize())) << "type " << type;
    }
    // An empty pattern that does arrive matches everything.
    Reply r;
    ASSERT_EQ(server_.ask(kJobs, 400, {handle_, "", "@", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 400, 5);
}

// A plan that shrinks under an open session: the job cut short is still
// found and sent, read as far as it goes, its missing bytes zero.
TEST_F(Requests, JobCutShortAfterTheOpenIsStillSent) {
    std::string path;
    buildSuitePlan(path, "shrinking", "workstation W\nschedule W S\njob FIRST\njob LAST\n");
    const std::string h = server_.open(path);
    ASSERT_FALSE(h.empty());
    Reply whole;
    ASSERT_EQ(server_.ask(kJobs, 90, {h, "@", "@", "@"}, whole), ClientStatus::Ok);
    expectRecordReply(whole, 90, 2);
    ASSERT_EQ(::truncate(path.c_str(), 4 * 512 + 300), 0);  // LAST is record 4
    Reply r;
    ASSERT_EQ(server_.ask(kJobs, 91, {h, "@", "@", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 91, 2);
    EXPECT_EQ(names(r, 32, 40), (std::vector<std::string>{"FIRST", "LAST"}));
    EXPECT_EQ(bytesOf(r.record(1), 300), bytesOf(whole.record(1), 300));
    EXPECT_EQ(bytesOf(r.record(1) + 300, 212), Bytes(212, 0));
}

TEST_F(Requests, UnknownOrClosedHandlesGetEmptyReplies) {
    const std::string other = server_.open(plan_);
    ASSERT_FALSE(other.empty());
    Reply closed;
    ASSERT_EQ(server_.ask(kClose, 50, {other}, closed), ClientStatus::Ok);
    std::uint32_t id = 500;
    for (const std::string& h : {std::string("999999"), std::string("junk"), std::string("-1"), other}) {
        Reply r;
        ASSERT_EQ(server_.ask(kCpus, id, {h, "@"}, r), ClientStatus::Ok);
        expectRecordReply(r, id++, 0);
        ASSERT_EQ(server_.ask(kSchedules, id, {h, "@", "@"}, r), ClientStatus::Ok);
        expectRecordReply(r, id++, 0);
        ASSERT_EQ(server_.ask(kJobs, id, {h, "@", "@", "@"}, r), ClientStatus::Ok);
        expectRecordReply(r, id++, 0);
        ASSERT_EQ(server_.ask(kDependencies, id, {h, "@", "@", "@"}, r), ClientStatus::Ok);
        expectRecordReply(r, id++, 0);
    }
}

TEST_F(Requests, NothingMatchingGivesCountZero) {
    Reply r;
    ASSERT_EQ(server_.ask(kCpus, 60, {handle_, "NOPE"}, r), ClientStatus::Ok);
    expectRecordReply(r, 60, 0);
    ASSERT_EQ(server_.ask(kSchedules, 61, {handle_, "A1", "NOPE"}, r), ClientStatus::Ok);
    expectRecordReply(r, 61, 0);
    ASSERT_EQ(server_.ask(kJobs, 62, {handle_, "@", "@", "NOPE"}, r), ClientStatus::Ok);
    expectRecordReply(r, 62, 0);
    ASSERT_EQ(server_.ask(kJobs, 63, {handle_, "B1", "S7", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 63, 0);
    ASSERT_EQ(server_.ask(kDependencies, 64, {handle_, "Z@", "@", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 64, 0);
}

TEST_F(Requests, PatternsAndSearchOrder) {
    Reply r;
    ASSERT_EQ(server_.ask(kCpus, 70, {handle_, "A@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 70, 2);
    EXPECT_EQ(names(r, 16, 16), (std::vector<std::string>{"A1", "A2"}));
    ASSERT_EQ(server_.ask(kCpus, 71, {handle_, "?1"}, r), ClientStatus::Ok);
    EXPECT_EQ(names(r, 16, 16), (std::vector<std::string>{"A1", "B1"}));
    ASSERT_EQ(server_.ask(kCpus, 72, {handle_, "@%"}, r), ClientStatus::Ok);
    EXPECT_EQ(names(r, 16, 16), (std::vector<std::string>{"A1", "A2", "B1"}));

    ASSERT_EQ(server_.ask(kSchedules, 73, {handle_, "@", "DAILY"}, r), ClientStatus::Ok);
    expectRecordReply(r, 73, 2);
    EXPECT_EQ(names(r, 16, 16), (std::vector<std::string>{"A1", "A2"}));

    ASSERT_EQ(server_.ask(kJobs, 74, {handle_, "A1", "@", "LOAD@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 74, 3);
    EXPECT_EQ(names(r, 32, 40), (std::vector<std::string>{"LOAD", "LOAD2", "LOAD"}));
    EXPECT_EQ(names(r, 74, 16), (std::vector<std::string>{"DAILY", "DAILY", "WEEKLY"}));

    ASSERT_EQ(server_.ask(kJobs, 75, {handle_, "@", "@", "@"}, r), ClientStatus::Ok);
    EXPECT_EQ(names(r, 32, 40), (std::vector<std::string>{"LOAD", "LOAD2", "REPORT", "LOAD", "EXTRACT"}));
}

TEST_F(Requests, VersionZeroPlanThroughTheSameQueries) {
    const std::string old = server_.open(v1_);
    ASSERT_FALSE(old.empty());
    Delivered d(v1_);
    ASSERT_TRUE(d.ok());

    Reply r;
    const std::vector<SCI_RECTYPE> cpus = d.cpus();
    ASSERT_EQ(server_.ask(kCpus, 80, {old, "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 80, 4);
    ASSERT_EQ(cpus.size(), 4u);
    for (std::size_t i = 0; i < cpus.size(); ++i) EXPECT_EQ(bytesOf(r.record(i), 512), expectedWire(&cpus[i], cpuForms()));

    const std::vector<SS_RECTYPE> scheds = d.schedules();
    ASSERT_EQ(server_.ask(kSchedules, 81, {old, "@", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 81, 4);
    ASSERT_EQ(scheds.size(), 4u);
    for (std::size_t i = 0; i < scheds.size(); ++i)
        EXPECT_EQ(bytesOf(r.record(i), 512), expectedWire(&scheds[i], scheduleForms()));

    const std::vector<SJ_RECTYPE> jobs = d.jobs();
    ASSERT_EQ(server_.ask(kJobs, 82, {old, "@", "@", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 82, 5);
    ASSERT_EQ(jobs.size(), 5u);
    for (std::size_t i = 0; i < jobs.size(); ++i) EXPECT_EQ(bytesOf(r.record(i), 512), expectedWire(&jobs[i], jobForms()));
    // Widened names: eight characters, then blanks.
    EXPECT_EQ(nameAt(r.record(4), 32, 40), "EXTRACT");

    ASSERT_EQ(server_.ask(kDependencies, 83, {old, "A1", "WEEKLY", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 83, 2);
}

}  // namespace
}  // namespace alm::qtest
