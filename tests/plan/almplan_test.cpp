// almplan dump: one line per record, as text or JSON.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/runprogram.h"
#include "common/tempdir.h"

namespace alm {
namespace {

using test::RunResult;

RunResult almplan(const std::vector<std::string>& args) {
    return test::run_program(test::built_program("almplan"), args);
}

class AlmplanTest : public ::testing::Test {
protected:
    test::TempDir dir;

    void SetUp() override {
        if (!std::filesystem::exists(test::built_program("almplan"))) GTEST_SKIP() << "almplan not built";
    }

    std::string build(const std::string& desc) {
        return test::make_plan(dir.file("plan"), desc);
    }
};

const char* kThree =
    "workstation A\n"
    "workstation B\n"
    "workstation C\n"
    "schedule A DAILY\n"
    "job BACKUP\n"
    "schedule B DAILY\n"
    "job BACKUP\n"
    "job BATCH\n"
    "schedule B WEEKLY\n"
    "job BILLING\n"
    "schedule C DAILY\n"
    "job BACKUP\n";

TEST_F(AlmplanTest, DumpListsEveryRecord) {
    std::string path = build(kThree);
    RunResult r = almplan({"dump", path});
    ASSERT_EQ(r.status, 0);
    auto lines = r.lines();
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[0].rfind("#0 header RH ", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find(" first_cpu=1 "), std::string::npos) << lines[0];
    EXPECT_EQ(lines[1].rfind("#1 workstation IC cpu=A ", 0), 0u) << lines[1];
    EXPECT_NE(lines[1].find(" prev=- next=2 "), std::string::npos) << lines[1];
    bool saw_job = false;
    for (const auto& l : lines) {
        if (l.find(" job RJ ") == std::string::npos || l.find("sched=WEEKLY") == std::string::npos) continue;
        saw_job = true;
        EXPECT_NE(l.find("job=BILLING"), std::string::npos) << l;
        EXPECT_NE(l.find("next=-"), std::string::npos) << l;
    }
    EXPECT_TRUE(saw_job);

    r = almplan({"dump", path, "--json"});
    ASSERT_EQ(r.status, 0);
    lines = r.lines();
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[0].rfind("{\"rec\":0,\"kind\":\"header\",\"code\":\"RH\",", 0), 0u) << lines[0];
    EXPECT_NE(lines[1].find("\"cpu\":\"A\""), std::string::npos) << lines[1];
    EXPECT_NE(lines[1].find("\"prev\":null,\"next\":2"), std::string::npos) << lines[1];
    for (const auto& l : lines) {
        EXPECT_EQ(l.front(), '{');
        EXPECT_EQ(l.back(), '}');
    }
}

TEST_F(AlmplanTest, DumpShowsFlagsDependenciesAndDates) {
    std::string desc =
        "header\n"
        "  set sh_sched_date 2026-11-22\n"
        "workstation A\n"
        "schedule A FIRST\n"
        "job ONE\n"
        "schedule A SECOND\n"
        "  set ss_sched_date 2026-11-22 08:15\n"
        "  dep sched A FIRST\n"
        "job TWO\n"
        "  set sj_flags 0x1001\n"
        "  dep job A FIRST ONE\n";
    std::string path = build(desc);
    const RunResult r = almplan({"dump", path});
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("sched_date=2026-11-22"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("sched_date=\"2026-11-22 08:15\""), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("flags=sjf1_re_job,sjf1_released"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("deps=PreschedDep:2"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("deps=PrejobDep:3"), std::string::npos) << r.out;
}

TEST_F(AlmplanTest, DumpFailures) {
    RunResult r = almplan({"dump", dir.file("missing")});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("20720035"), std::string::npos) << r.err;
    r = almplan({"dump"});
    EXPECT_EQ(r.status, 2);
    r = almplan({"dump", "a", "b"});
    EXPECT_EQ(r.status, 2);

    // A plan cut short: the whole records are still listed, and the exit
    // status and a line on stderr say that it is damaged.
    std::string path = build(kThree);
    std::filesystem::resize_file(path, 12 * 512 + 100);
    r = almplan({"dump", path});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.lines().size(), 12u);
    EXPECT_NE(r.err.find(" is damaged: "), std::string::npos) << r.err;
}

}  // namespace
}  // namespace alm
