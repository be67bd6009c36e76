// Helpers for the code set tests: environment overrides, the almcodeset
// tool, iconv as the reference converter, and hand-made tables. Temporary
// directories and whole files come from the shared test support.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/files.h"
#include "common/tempdir.h"

namespace alm::test {

// Sets (or, with nullopt, unsets) one environment variable for a scope.
class ScopedEnv {
public:
    ScopedEnv(const char* name, std::optional<std::string> value);
    ~ScopedEnv();
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    std::string name_;
    std::optional<std::string> old_;
};

// Runs the built almcodeset with args, its output dropped; its exit status.
int run_almcodeset(const std::vector<std::string>& args);

// One directory for the whole test process holding tables made by
// almcodeset on demand: codeset_dir()/codeset/<table>.
const std::string& shared_ilsdir();
// Makes the table for an iconv code set once; returns its table name.
std::string ensure_table(const std::string& codeset, const std::string& type);

// iconv from one code set to another; nullopt when iconv rejects the input
// (or the code set). *incomplete, when given, tells whether the input was
// rejected only for ending inside a character.
std::optional<std::string> iconv_convert(const char* from, const char* to, const std::string& in,
                                         bool* incomplete = nullptr);

std::string utf8_of(std::uint32_t cp);

}  // namespace alm::test
