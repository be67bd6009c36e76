#include "messages/msg_helpers.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "messages/catalogfile.h"
#include "util/stdfuncs.h"

namespace alm::msgtest {

RunResult run_command(const std::string& cmd) { return test::run_program("/bin/sh", {"-c", cmd}); }

std::string almcat_path() { return test::built_program("almcat"); }

void compile_catalog(const std::string& source, const std::string& out, bool keep_deleted) {
    TempDir tmp;
    std::string src = tmp.write("src.msg", source);
    std::filesystem::create_directories(std::filesystem::path(out).parent_path());
    RunResult r = run_command(almcat_path() + (keep_deleted ? " --keep-deleted " : " ") + src + " " + out);
    ASSERT_EQ(r.status, 0) << r.err;
}

void use_home(const std::string& home) {
    ::setenv("LANG", "C", 1);
    ::unsetenv("LC_ALL");
    ::unsetenv("LC_MESSAGES");
    ::unsetenv("NLSPATH");
    ::unsetenv("ISSUEMSGDEBUG");
    std::snprintf(QUAL_HOMEDIR, sizeof QUAL_HOMEDIR, "%s", home.c_str());
}

std::vector<unsigned char> build_catalog(const std::vector<RawSet>& sets) {
    std::vector<unsigned char> out(CAT_HEADER_SIZE);
    std::int32_t valid = 0;
    std::size_t prev = 0;
    for (const RawSet& s : sets) {
        if (s.invalid == 0) ++valid;
        const std::size_t at = out.size();
        if (prev != 0) store_be32(out.data() + prev + 4, static_cast<std::uint32_t>(at));
        std::string block;
        std::vector<MCMsgTDisk> recs;
        for (const RawMsg& m : s.msgs) {
            recs.push_back({m.id, static_cast<std::int32_t>(block.size()), m.invalid});
            block += m.text;
            block += '\0';
        }
        MCSetTDisk d{};
        d.setId = s.id;
        d.u = static_cast<std::int32_t>(at + CAT_SET_SIZE);
        d.data = static_cast<std::int32_t>(at + CAT_SET_SIZE + recs.size() * CAT_MSG_SIZE);
        d.dataLen = static_cast<std::int32_t>(block.size());
        d.numMsgs = static_cast<std::int32_t>(recs.size());
        d.invalid = s.invalid;
        out.resize(static_cast<std::size_t>(d.data) + block.size());
        d.encode(out.data() + at);
        for (std::size_t k = 0; k < recs.size(); ++k) recs[k].encode(out.data() + d.u + k * CAT_MSG_SIZE);
        std::copy(block.begin(), block.end(), out.begin() + d.data);
        prev = at;
    }
    MCHeaderDisk h{};
    std::copy(std::begin(CAT_MAGIC), std::end(CAT_MAGIC), h.magic);
    h.majorVer = 1;
    h.minorVer = 1;
    h.numSets = valid;
    h.firstSet = CAT_HEADER_SIZE;
    h.encode(out.data());
    return out;
}

}  // namespace alm::msgtest
