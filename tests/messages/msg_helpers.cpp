#include "messages/msg_helpers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "messages/catfile.h"
#include "util/stdfuncs.h"

namespace alm::msgtest {

TempHome::TempHome() : owner_(::getpid()) {
    std::string templ = (std::filesystem::temp_directory_path() / "almmsg.XXXXXX").string();
    if (::mkdtemp(templ.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
    dir_ = templ;
}

TempHome::~TempHome() {
    if (::getpid() != owner_) return;
    std::error_code ec;
    std::filesystem::remove_all(dir_, ec);
}

std::string TempHome::write(const std::string& rel, const std::string& bytes) const {
    std::filesystem::path p = path(rel);
    std::filesystem::create_directories(p.parent_path());
    std::ofstream f(p, std::ios::binary | std::ios::trunc);
    f << bytes;
    return p.string();
}

std::string TempHome::write(const std::string& rel, const std::vector<unsigned char>& bytes) const {
    return write(rel, std::string(bytes.begin(), bytes.end()));
}

std::string read_file(const std::string& path) {
    std::ifstream f(path, std::ios::binary);
    std::ostringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

RunResult run_child(const std::function<void()>& fn) {
    RunResult r;
    TempHome tmp;
    const std::string outp = tmp.path("out");
    const std::string errp = tmp.path("err");
    std::fflush(nullptr);
    pid_t pid = ::fork();
    if (pid < 0) return r;
    if (pid == 0) {
        int o = ::open(outp.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        int e = ::open(errp.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (o < 0 || e < 0) ::_exit(99);
        ::dup2(o, 1);
        ::dup2(e, 2);
        ::close(o);
        ::close(e);
        fn();
        std::fflush(nullptr);
        ::_exit(0);
    }
    int st = 0;
    while (::waitpid(pid, &st, 0) < 0) {
    }
    r.status = WIFEXITED(st) ? WEXITSTATUS(st) : 128 + WTERMSIG(st);
    r.out = read_file(outp);
    r.err = read_file(errp);
    return r;
}

RunResult run_command(const std::string& cmd) {
    return run_child([&] {
        ::execl("/bin/sh", "sh", "-c", cmd.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    });
}

std::string almcat_path() { return std::string(ALM_BUILD_DIR) + "/bin/almcat"; }

void compile_catalog(const std::string& source, const std::string& out, bool keep_deleted) {
    TempHome tmp;
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
