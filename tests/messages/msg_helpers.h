// Helpers for the message tests: compiling catalog sources with almcat and
// hand-made catalog bytes. Code that touches the facility runs in a child
// process (the facility keeps per-process state), with run_child.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/files.h"
#include "common/runprogram.h"
#include "common/tempdir.h"

namespace alm::msgtest {

using test::read_file;
using test::run_child;
using test::RunResult;
using test::TempDir;

// Runs a command line through the shell.
RunResult run_command(const std::string& cmd);

std::string almcat_path();
// Compiles source text into a catalog at out; fails the test on error.
void compile_catalog(const std::string& source, const std::string& out, bool keep_deleted = false);

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
