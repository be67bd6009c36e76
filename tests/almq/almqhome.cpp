#include "almqhome.h"

#include <filesystem>

#include "client/almclient.h"
#include "common/installhome.h"

namespace alm::almqtest {

namespace fs = std::filesystem;

namespace {

constexpr int kWaitMs = 120000;

}  // namespace

AlmqHome::AlmqHome(std::string zone) : zone_(std::move(zone)) {
    ok_ = test::install_home(path(), {"almq", "almread"});
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
    // AlmClient gives a killing signal as its negative, RunResult as 128 + signal.
    int code = -1;
    if (child.waitExit(code, kWaitMs) == ClientStatus::Ok) r.status = code < 0 ? 128 - code : code;
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
    const RunResult r = run(test::built_program("almplan"), args);
    return r.status == 0;
}

bool AlmqHome::buildPlanText(const std::string& text, const std::string& rel) const {
    return buildPlan(dir_.write(rel + ".txt", text), rel);
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
