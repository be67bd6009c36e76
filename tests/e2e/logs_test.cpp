// End-to-end: the listing of archived plans in the home's schedlog/.
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "client/almclient.h"
#include "e2e/home.h"

namespace alm::filestest {
namespace {

#define ASSERT_OK(expr) ASSERT_EQ(clientStatusName(expr), std::string("Ok"))
#define EXPECT_OK(expr) EXPECT_EQ(clientStatusName(expr), std::string("Ok"))

Reply listLogs(AlmClient& c, std::uint32_t id, const std::vector<std::string>& args = {}) {
    Reply r;
    EXPECT_OK(c.send(4, id, args));
    EXPECT_OK(c.readReply(r, kWaitMs));
    EXPECT_EQ(r.header.type, 0u);
    EXPECT_EQ(r.header.id, id);
    EXPECT_EQ(r.header.dataType, 0u);
    return r;
}

std::vector<std::string> names(const Reply& r) {
    auto items = r.strings();
    EXPECT_EQ(items.size(), r.header.numData);
    return items;
}

TEST(Logs, ArchivedPlansNewestFirstOthersLeftOut) {
    TempHome home;
    ASSERT_TRUE(home.ok());
    for (const char* n : {"M9901010600", "M9902010600", "M9901020600", "x9901010600", "m9901010600",
                          "AM9901010600", ".M9901010600", "M"})
        ASSERT_TRUE(home.touch(std::string("schedlog/") + n));
    AlmClient c;
    ASSERT_TRUE(startServer(c, home));

    const Reply r = listLogs(c, 5);
    const std::string dir = home.file("schedlog/");
    const std::vector<std::string> want{dir + "M9902010600", dir + "M9901020600",
                                        dir + "M9901010600", dir + "M"};
    EXPECT_EQ(names(r), want);
    std::size_t body = 0;
    for (const auto& w : want) body += w.size() + 1;
    EXPECT_EQ(r.header.size, 20 + body);
    // Arguments are not looked at.
    EXPECT_EQ(names(listLogs(c, 6, {"x", "y", "z"})), want);
    c.closeInput();
    int code = -1;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 0);
}

TEST(Logs, MissingOrEmptyLogDirectoryListsNothing) {
    TempHome home;
    ASSERT_TRUE(home.ok());
    AlmClient c;
    ASSERT_TRUE(startServer(c, home));
    Reply r = listLogs(c, 1);
    EXPECT_EQ(r.header.numData, 0u);
    EXPECT_EQ(r.header.size, 20u);

    std::filesystem::remove(home.file("schedlog"));
    r = listLogs(c, 2);
    EXPECT_EQ(r.header.numData, 0u);
    EXPECT_EQ(r.header.size, 20u);

    // The directory appearing later is seen by the next listing.
    std::filesystem::create_directory(home.file("schedlog"));
    ASSERT_TRUE(home.touch("schedlog/M2601010600"));
    EXPECT_EQ(names(listLogs(c, 3)),
              std::vector<std::string>{home.file("schedlog/M2601010600")});
    c.closeInput();
    int code = -1;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 0);
}

TEST(Logs, AtMost1024NamesComeBackSorted) {
    TempHome home;
    ASSERT_TRUE(home.ok());
    for (int i = 0; i < 1100; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "schedlog/M%04d010600", i);
        ASSERT_TRUE(home.touch(name));
    }
    AlmClient c;
    ASSERT_TRUE(startServer(c, home));
    const auto got = names(listLogs(c, 9));
    ASSERT_EQ(got.size(), 1024u);
    EXPECT_TRUE(std::is_sorted(got.begin(), got.end(), std::greater<>()));
    EXPECT_EQ(std::adjacent_find(got.begin(), got.end()), got.end());
    for (const auto& g : got) EXPECT_EQ(g.rfind(home.file("schedlog/M"), 0), 0u) << g;
    // The server goes on answering afterwards.
    EXPECT_EQ(listLogs(c, 10).header.numData, 1024u);
    c.closeInput();
    int code = -1;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 0);
}

}  // namespace
}  // namespace alm::filestest
