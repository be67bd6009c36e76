// Helpers for the almplan tests: a scratch directory, running the built
// tool, and reading a written plan back record by record.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plan/almrecs.h"

namespace almtest {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    std::string write(const std::string& name, const std::string& text) const;
    // Names in the directory, sorted, without "." and "..".
    std::vector<std::string> entries() const;

private:
    std::string path_;
};

struct RunResult {
    int status = -1;  // exit status, or -1 when the tool did not exit normally
    std::string out;
    std::string err;
};

// Runs BUILD/bin/almplan with the arguments and collects its output.
RunResult run_almplan(const std::vector<std::string>& args);
std::string sample_path();

bool file_exists(const std::string& path);
std::string read_bytes(const std::string& path);

// A plan file read back: raw records as stored and their external form.
class Plan {
public:
    bool load(const std::string& path);

    std::int16_t version() const { return version_; }
    int rec_size() const { return rec_size_; }
    std::uint32_t count() const { return count_; }
    const unsigned char* raw(std::uint32_t n) const;
    const alm::ALMRECTYPE& ext(std::uint32_t n) const { return ext_[n]; }
    std::int16_t code(std::uint32_t n) const;

    // Field readers on the external form.
    std::uint32_t u32(std::uint32_t n, std::size_t off) const;
    std::int32_t i32(std::uint32_t n, std::size_t off) const;
    std::uint16_t u16(std::uint32_t n, std::size_t off) const;
    std::int16_t i16(std::uint32_t n, std::size_t off) const;
    std::string text(std::uint32_t n, std::size_t off, std::size_t width) const;  // trailing blanks cut

    // Follows `next_off` from `first` until the null record; stops (and
    // reports false) on a loop or a number outside the file.
    bool walk(std::uint32_t first, std::size_t next_off, std::vector<std::uint32_t>& out) const;

private:
    std::string bytes_;
    std::int16_t version_ = 0;
    int rec_size_ = 0;
    std::uint32_t count_ = 0;
    std::vector<alm::ALMRECTYPE> ext_;
};

// Checks every invariant the builder promises (chains, back pointers,
// counts, ordering, dependency kinds); failures are reported through gtest.
void expect_consistent(const Plan& p);

// "WORKSTATION SCHEDULE" of each schedule, in chain order.
std::vector<std::string> schedule_names(const Plan& p);
// The record number of a job found by names, or the null record.
std::uint32_t find_job(const Plan& p, const std::string& ws, const std::string& sched, const std::string& job);
std::uint32_t find_sched(const Plan& p, const std::string& ws, const std::string& sched);

}  // namespace almtest
