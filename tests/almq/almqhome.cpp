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

bool AlmqHome::synthPlan(int cpus, int scheds, int jobs, bool deps, const std::string& rel) const {
    std::vector<std::string> args{"synth", "--cpus", std::to_string(cpus), "--scheds", std::to_string(scheds),
                                  "--jobs", std::to_string(jobs)};
    if (deps) args.push_back("--deps");
    args.push_back(file(rel));
    return run(test::built_program("almplan"), args).status == 0;
}

// The server writes into a FIFO that dd copies on, a byte at a time so
// that nothing waits in a buffer; when dd has passed its share, the server
// is stopped and the script ends, so almq sees the output close.
std::string AlmqHome::cutServer(std::size_t bytes) const {
    const std::string script = dir_.write("bin/almread-cut-" + std::to_string(bytes),
                                          "#!/bin/sh\n"
                                          "exec 3<&0\n"
                                          "mkfifo \"$0.out\"\n"
                                          "\"" + server() + "\" <&3 3<&- >\"$0.out\" &\n"
                                          "server=$!\n"
                                          "dd bs=1 count=" + std::to_string(bytes) + " status=none <\"$0.out\"\n"
                                          "kill $server\n"
                                          "rm -f \"$0.out\"\n");
    fs::permissions(script, fs::perms::owner_all);
    return script;
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
