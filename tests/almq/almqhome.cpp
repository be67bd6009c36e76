#include "almqhome.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "client/almclient.h"

namespace alm::almqtest {

namespace fs = std::filesystem;

namespace {

constexpr int kWaitMs = 120000;

}  // namespace

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

AlmqHome::AlmqHome(std::string zone) : zone_(std::move(zone)) {
    char tmpl[] = "/tmp/almqtestXXXXXX";
    if (::mkdtemp(tmpl) == nullptr) return;
    path_ = tmpl;
    std::error_code ec;
    fs::create_directories(file("bin"), ec);
    fs::create_directories(file("catalog/C"), ec);
    for (const char* prog : {"almq", "almread"}) {
        fs::copy_file(std::string(ALM_BUILD_DIR "/bin/") + prog, file(std::string("bin/") + prog), ec);
        if (ec) return;
    }
    for (const auto& e : fs::directory_iterator(ALM_BUILD_DIR "/catalog/C", ec)) {
        fs::copy_file(e.path(), file("catalog/C/" + e.path().filename().string()), ec);
        if (ec) return;
    }
    ok_ = !ec;
}

AlmqHome::~AlmqHome() {
    if (path_.empty()) return;
    std::error_code ec;
    fs::remove_all(path_, ec);
}

RunResult AlmqHome::run(const std::string& program, const std::vector<std::string>& args,
                        const std::string& workDir) const {
    RunResult r;
    AlmClient child;
    SpawnOptions opts;
    opts.extraEnv = {"TZ=" + zone_, "LANG=C"};
    opts.unsetEnv = {"LC_ALL", "LC_MESSAGES", "NLSPATH", "COBALTHOME", "UNIDATESTRIP"};
    opts.workDir = workDir;
    opts.captureStderr = true;
    std::vector<std::string> argv{program};
    argv.insert(argv.end(), args.begin(), args.end());
    if (child.start(program, argv, opts) != ClientStatus::Ok) return r;
    child.closeInput();
    child.readAll(r.out, kWaitMs);
    child.readStderr(r.err, kWaitMs);
    child.waitExit(r.status, kWaitMs);
    return r;
}

RunResult AlmqHome::runAlmq(const std::vector<std::string>& args, const std::string& workDir) const {
    return run(almq(), args, workDir);
}

bool AlmqHome::buildPlan(const std::string& desc, const std::string& rel, bool v1) const {
    std::error_code ec;
    fs::create_directories(fs::path(file(rel)).parent_path(), ec);
    std::vector<std::string> args{"build"};
    if (v1) args.push_back("--v1");
    args.push_back(desc);
    args.push_back(file(rel));
    const RunResult r = run(ALM_BUILD_DIR "/bin/almplan", args);
    return r.status == 0;
}

bool AlmqHome::buildPlanText(const std::string& text, const std::string& rel) const {
    const std::string desc = file(rel + ".txt");
    std::error_code ec;
    fs::create_directories(fs::path(desc).parent_path(), ec);
    {
        std::ofstream f(desc, std::ios::binary);
        f << text;
        if (!f) return false;
    }
    return buildPlan(desc, rel);
}

const AlmqHome& sample_home() {
    static const AlmqHome home;
    static const bool built = home.ok() && home.buildPlan(kSampleDesc, "Almanack") &&
                              home.buildPlan(kSampleDesc, "schedlog/M2611210600") &&
                              home.buildPlan(kSampleDesc, "schedlog/M2611220600");
    (void)built;
    return home;
}

}  // namespace alm::almqtest
