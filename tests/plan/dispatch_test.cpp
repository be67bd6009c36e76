// Dispatch by type code, unknown codes, unsupported versions, and the guarded
// expansion of the catalog text that reports an unknown code.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "common/runprogram.h"
#include "util/date_helpers.h"
#include "plan/forms_helpers.h"
#include "plan/almforms.h"
#include "plan/unknownrecord.h"

namespace alm {
namespace {

using namespace alm::test;

std::size_t count_lines(const std::string& s) { return static_cast<std::size_t>(std::count(s.begin(), s.end(), '\n')); }

// The message facility reports a missing catalog once, on first use; get
// that out of the way so that captures hold only the line under test.
void messages_ready() {
    static const bool ready = [] {
        StderrCapture quiet;
        report_unknown_record(41, 2064, 0);
        return true;
    }();
    (void)ready;
}

// The catalog text is written as it stands, without a line end of its own.
TEST(UnknownCode, ReadLeavesTheCallerBufferAndPrintsTheText) {
    for (std::int16_t version : {0, 1}) {
        for (std::uint16_t code : {0x0000, 0x7A7A, 0xFFFF, 0x5248 /* "HR": bytes swapped */}) {
            ALMRECTYPE_INT in;
            std::memset(in.bytes, 0x11, sizeof in.bytes);
            put16(&in, 0, code);
            ALMRECTYPE out;
            std::memset(out.bytes, 0xCD, sizeof out.bytes);
            messages_ready();
            StderrCapture cap;
            EXPECT_EQ(alm_i_2_e(&in, &out, version), 1);
            const std::string err = cap.text();
            EXPECT_EQ(count_lines(err), 0u) << err;
            EXPECT_GT(err.size(), 1u);
            EXPECT_TRUE(all_bytes(out.bytes, sizeof out.bytes, 0xCD));
        }
    }
}

TEST(UnknownCode, WriteLeavesTheFileBufferAndPrintsTheText) {
    ALMRECTYPE ext;
    std::memset(ext.bytes, 0x22, sizeof ext.bytes);
    put16(&ext, 0, 0x4A4A);
    ALMRECTYPE_INT in;
    std::memset(in.bytes, 0xCD, sizeof in.bytes);
    messages_ready();
    StderrCapture cap;
    EXPECT_EQ(alm_e_2_i(&ext, &in, 1), 0);
    EXPECT_EQ(count_lines(cap.text()), 0u);
    EXPECT_FALSE(cap.text().empty());
    EXPECT_TRUE(all_bytes(in.bytes, sizeof in.bytes, 0xCD));
}

TEST(KnownCodes, EveryKindIsDispatchedQuietly) {
    ScopedTz tz("UTC");
    const std::int16_t codes[] = {SH_CODE, SCI_CODE, SS_CODE, SJ_CODE, SM_CODE, SF_CODE,
                                  SR_CODE, SC_CODE, ST_CODE, SD_CODE, PJ_CODE};
    for (std::int16_t code : codes) {
        for (std::int16_t version : {0, 1}) {
            ALMRECTYPE_INT in;
            std::memset(in.bytes, 0, sizeof in.bytes);
            put16(&in, 0, static_cast<std::uint16_t>(code));
            ALMRECTYPE out;
            std::memset(out.bytes, 0xCD, sizeof out.bytes);
            StderrCapture cap;
            EXPECT_EQ(alm_i_2_e(&in, &out, version), 0) << code;
            EXPECT_EQ(out.alm_rec_type, code);
            ALMRECTYPE_INT back;
            EXPECT_EQ(alm_e_2_i(&out, &back, version), 0);
            EXPECT_EQ(back.alm_rec_type, code);
            EXPECT_EQ(cap.text(), "");
        }
    }
}

TEST(Versions, OtherValuesChangeNothing) {
    for (std::int16_t version : {2, 3, 255, -1, -32768}) {
        ALMRECTYPE_INT in;
        std::memset(in.bytes, 0, sizeof in.bytes);
        put16(&in, 0, static_cast<std::uint16_t>(SJ_CODE));
        ALMRECTYPE out;
        std::memset(out.bytes, 0xAB, sizeof out.bytes);
        EXPECT_EQ(alm_i_2_e(&in, &out, version), 0);
        EXPECT_TRUE(all_bytes(out.bytes, sizeof out.bytes, 0xAB)) << version;
        EXPECT_EQ(alm_i_2_e_HDR(&in, &out, version), 0);
        EXPECT_TRUE(all_bytes(out.bytes, sizeof out.bytes, 0xAB)) << version;

        ALMRECTYPE ext;
        std::memset(ext.bytes, 0, sizeof ext.bytes);
        put16(&ext, 0, static_cast<std::uint16_t>(SS_CODE));
        ALMRECTYPE_INT file;
        std::memset(file.bytes, 0xAB, sizeof file.bytes);
        EXPECT_EQ(alm_e_2_i(&ext, &file, version), 0);
        EXPECT_EQ(alm_e_2_i_PJ(&ext, &file, version), 0);
        EXPECT_TRUE(all_bytes(file.bytes, sizeof file.bytes, 0xAB)) << version;
    }
}

TEST(PerKind, UserDefinitionsAreCarriedWhole) {
    ALMRECTYPE_INT in;
    fill_pattern(in.bytes, sizeof in.bytes, 9);
    ALMRECTYPE out;
    ASSERT_EQ(alm_i_2_e_USER_DEFN(&in, &out, 1), 0);
    EXPECT_EQ(std::memcmp(out.bytes, in.bytes, 512), 0);
    ASSERT_EQ(alm_i_2_e_USER_DEFN(&in, &out, 0), 0);
    EXPECT_EQ(std::memcmp(out.bytes, in.bytes, 256), 0);
    EXPECT_TRUE(all_bytes(out.bytes + 256, 256, ' '));
    ALMRECTYPE_INT back;
    ASSERT_EQ(alm_e_2_i_USER_DEFN(&out, &back, 0), 0);
    EXPECT_EQ(std::memcmp(back.bytes, in.bytes, 256), 0);
}

TEST(PerKind, ConvertingInPlaceMatchesSeparateBuffers) {
    ScopedTz tz("America/New_York");
    for (std::int16_t version : {0, 1}) {
        ALMRECTYPE_INT in;
        fill_pattern(in.bytes, sizeof in.bytes, 5);
        put16(&in, 0, static_cast<std::uint16_t>(SS_CODE));
        put32(&in, version == 0 ? 32 : 324, version == 0 ? 260305u : static_cast<std::uint32_t>(utc(2026, 3, 5, 5)));
        ALMRECTYPE separate;
        ASSERT_EQ(alm_i_2_e(&in, &separate, version), 0);
        ALMRECTYPE_INT same = in;
        ASSERT_EQ(alm_i_2_e(&same, &same.v2, version), 0);
        EXPECT_EQ(std::memcmp(same.bytes, separate.bytes, 512), 0) << version;
        EXPECT_EQ(same.v2.ss.ss_prod_date, utc(2026, 3, 5));

        ALMRECTYPE_INT file_separate;
        std::memset(file_separate.bytes, 0, sizeof file_separate.bytes);
        ASSERT_EQ(alm_e_2_i(&separate, &file_separate, version), 0);
        ASSERT_EQ(alm_e_2_i(&same.v2, &same, version), 0);
        EXPECT_EQ(std::memcmp(same.bytes, file_separate.bytes, version == 0 ? 256 : 512), 0) << version;
    }
}

TEST(PerKind, NullBuffersAreRefused) {
    ALMRECTYPE_INT in;
    std::memset(in.bytes, 0, sizeof in.bytes);
    ALMRECTYPE out;
    EXPECT_EQ(alm_i_2_e(nullptr, &out, 1), 1);
    EXPECT_EQ(alm_i_2_e(&in, nullptr, 1), 1);
    EXPECT_EQ(alm_e_2_i(nullptr, &in, 1), 0);
    EXPECT_EQ(alm_e_2_i(&out, nullptr, 1), 0);
    EXPECT_EQ(alm_i_2_e_JOB(nullptr, &out, 0), 0);
    EXPECT_EQ(alm_e_2_i_JOB(&out, nullptr, 0), 0);
}

TEST(Report, OnlySafeConversionsAreExpanded) {
    struct Case {
        const char* text;
        int code;
        const char* want;
    };
    const Case cases[] = {
        {"%s(%d): unknown record type %d", 31354, "almaccs(2064): unknown record type 31354"},
        {"QFR20720041  bad code %d in %s line %d", 7, "QFR20720041  bad code almaccs in 2064 line 7"},
        {"100%% %s", 1, "100% almaccs"},
        {"%%d %s", 1, "%d almaccs"},
        {"%n%x%p%s%c", 1, "%n%x%palmaccs%c"},
        {"%s %s %s %s %d", 9, "almaccs 2064 9 %s %d"},
        {"[%-9s|%6d|%06d]", -5, "[almaccs  |  2064|-00005]"},
        {"%1$s %*d %.3s", 1, "%1$s %*d %.3s"},
        {"tail %", 1, "tail %"},
        {"tail %-", 1, "tail %-"},
        {"NO MSG: ,,,,", 1, "NO MSG: ,,,,"},
        {"", 1, ""},
        {"%09d|%09s", 1, "  almaccs|     2064"},
    };
    for (const auto& c : cases) EXPECT_EQ(format_record_report(c.text, "almaccs", 2064, c.code), c.want) << c.text;
    EXPECT_EQ(format_record_report(nullptr, "almaccs", 1, 1), "");
    EXPECT_EQ(format_record_report("%s", nullptr, 1, 1), "");
    // Widths are bounded.
    EXPECT_EQ(format_record_report("%99999999999999d", "f", 1, 1).size(), 64u);
}

// Runs only inside the fresh process started below.
TEST(Report, ChildConvertsAnUnknownCode) {
    if (std::getenv("ALM_REPORT_CHILD") == nullptr) GTEST_SKIP() << "helper for CatalogTextIsExpanded";
    ALMRECTYPE_INT in;
    std::memset(in.bytes, 0, sizeof in.bytes);
    put16(&in, 0, 0x7A7A);
    ALMRECTYPE out;
    EXPECT_EQ(alm_i_2_e(&in, &out, 1), 1);
}

// With the built catalogs the text carries the file name, line and code. The
// message facility keeps its catalogs for the life of a process, so this runs
// in a fresh one, with the build tree as its home.
TEST(Report, CatalogTextIsExpandedWithFileLineAndCode) {
    const std::string home = ALM_BUILD_DIR;
    struct stat st{};
    if (stat((home + "/catalog/C/kestrel.cat").c_str(), &st) != 0) GTEST_SKIP() << "catalogs not built";
    const test::RunResult r = test::run_child([&] {
        if (chdir(home.c_str()) != 0) _exit(2);
        setenv("ALM_REPORT_CHILD", "1", 1);
        setenv("COBALTHOME", home.c_str(), 1);
        setenv("LANG", "C", 1);
        unsetenv("LC_ALL");
        unsetenv("LC_MESSAGES");
        unsetenv("NLSPATH");
        execl("/proc/self/exe", "test_plan", "--gtest_filter=Report.ChildConvertsAnUnknownCode",
              static_cast<char*>(nullptr));
        _exit(3);
    });
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "QFR20720041  almaccs(2064): a record of unknown kind 31354 cannot be converted to the caller form.");
}

}  // namespace
}  // namespace alm
