// Helpers for the message tests: a private home directory, compiling
// catalog sources with almcat, hand-made catalog bytes, and running code in
// a child process (the facility keeps per-process state) with its standard
// output and standard error captured.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace alm::msgtest {

// A fresh directory, removed with everything below it at destruction.
class TempHome {
public:
    TempHome();
    ~TempHome();
    TempHome(const TempHome&) = delete;
    TempHome& operator=(const TempHome&) = delete;
    const std::string& dir() const { return dir_; }
    std::string path(const std::string& rel) const { return dir_ + "/" + rel; }
    // Writes a file (creating its directories) and returns its path.
    std::string write(const std::string& rel, const std::string& bytes) const;
    std::string write(const std::string& rel, const std::vector<unsigned char>& bytes) const;

private:
    std::string dir_;
    int owner_;  // a child that exits must not remove its parent's directory
};

struct RunResult {
    int status = -1;  // exit status, or 128 + signal
    std::string out;
    std::string err;
};

// Runs fn in a child with stdout and stderr going to files; the child ends
// with status 0 after fn unless fn ends it first.
RunResult run_child(const std::function<void()>& fn);

// Runs a command line through the shell.
RunResult run_command(const std::string& cmd);

std::string almcat_path();
// Compiles source text into a catalog at out; fails the test on error.
void compile_catalog(const std::string& source, const std::string& out, bool keep_deleted = false);
std::string read_file(const std::string& path);

// Child-side set-up: a clean message environment (LANG=C, no NLSPATH,
// LC_ALL or LC_MESSAGES) and the given home directory.
void use_home(const std::string& home);

// Hand-made catalog files, for damaged layouts that almcat never writes.
struct RawMsg {
    std::int32_t id;
    std::string text;
    std::int32_t invalid = 0;
};
struct RawSet {
    std::int32_t id;
    std::vector<RawMsg> msgs;
    std::int32_t invalid = 0;
};
std::vector<unsigned char> build_catalog(const std::vector<RawSet>& sets);

}  // namespace alm::msgtest
