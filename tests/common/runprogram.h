// Programs and code run in child processes, with what they write on
// standard output and standard error captured.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace alm::test {

struct RunResult {
    int status = -1;  // exit status, 128 + signal when killed, -1 when it never ran
    std::string out;
    std::string err;
    std::vector<std::string> lines() const;  // out split at line ends
};

// Runs fn in a forked child whose standard output and standard error go to
// files; the child exits 0 after fn unless fn ends it first, and is ended
// by SIGALRM if it still runs after two minutes.
RunResult run_child(const std::function<void()>& fn);

// Runs program (a path, no shell) with args, in this process's environment.
RunResult run_program(const std::string& program, const std::vector<std::string>& args);

// BUILD/bin/NAME: a program built in this tree.
std::string built_program(const std::string& name);

// `almplan build [--v1] DESC OUT`.
RunResult build_plan(const std::string& desc, const std::string& out, bool v1 = false);

// Builds the plan described by the text desc at out, making its directory
// (the description goes to a scratch file beside it, removed afterwards);
// returns out. Throws
// std::runtime_error with almplan's complaint when it fails.
std::string make_plan(const std::string& out, const std::string& desc, bool v1 = false);

}  // namespace alm::test
