#include "common/runprogram.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "common/files.h"
#include "common/tempdir.h"

namespace alm::test {

std::vector<std::string> RunResult::lines() const {
    std::vector<std::string> out_lines;
    std::size_t start = 0;
    while (start < out.size()) {
        std::size_t end = out.find('\n', start);
        if (end == std::string::npos) end = out.size();
        out_lines.push_back(out.substr(start, end - start));
        start = end + 1;
    }
    return out_lines;
}

RunResult run_child(const std::function<void()>& fn) {
    RunResult r;
    const TempDir streams;
    const std::string out_path = streams.file("stdout");
    const std::string err_path = streams.file("stderr");
    std::fflush(nullptr);  // nothing buffered here may come out twice
    const pid_t pid = ::fork();
    if (pid < 0) return r;
    if (pid == 0) {
        const int o = ::open(out_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const int e = ::open(err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (o < 0 || e < 0 || ::dup2(o, 1) < 0 || ::dup2(e, 2) < 0) ::_exit(126);
        ::close(o);
        ::close(e);
        // A child that hangs dies of the alarm, which outlives exec, so the
        // test fails instead of waiting for ever.
        ::alarm(120);
        // The child must never return into the test program.
        try {
            fn();
        } catch (...) {
            ::_exit(125);
        }
        std::fflush(nullptr);
        ::_exit(0);
    }
    int st = 0;
    while (::waitpid(pid, &st, 0) < 0) {
        if (errno != EINTR) return r;
    }
    r.status = WIFEXITED(st) ? WEXITSTATUS(st) : 128 + WTERMSIG(st);
    r.out = read_file(out_path);
    r.err = read_file(err_path);
    return r;
}

RunResult run_program(const std::string& program, const std::vector<std::string>& args) {
    std::vector<std::string> argv_store{program};
    argv_store.insert(argv_store.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (auto& a : argv_store) argv.push_back(a.data());
    argv.push_back(nullptr);
    return run_child([&] {
        ::execv(program.c_str(), argv.data());
        ::_exit(127);
    });
}

std::string built_program(const std::string& name) { return std::string(ALM_BUILD_DIR) + "/bin/" + name; }

RunResult build_plan(const std::string& desc, const std::string& out, bool v1) {
    std::vector<std::string> args{"build"};
    if (v1) args.push_back("--v1");
    args.push_back(desc);
    args.push_back(out);
    return run_program(built_program("almplan"), args);
}

std::string make_plan(const std::string& out, const std::string& desc, bool v1) {
    const std::string desc_path = out + ".desc";
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(out).parent_path(), ec);
    write_file(desc_path, desc);
    const RunResult r = build_plan(desc_path, out, v1);
    std::remove(desc_path.c_str());
    if (r.status != 0) throw std::runtime_error("almplan build " + out + ": " + r.out + r.err);
    return out;
}

}  // namespace alm::test
