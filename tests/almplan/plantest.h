// Helpers for the almplan tests: running the built tool, and reading a
// written plan back record by record.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/files.h"
#include "common/runprogram.h"
#include "common/tempdir.h"
#include "plan/almrecs.h"

namespace almtest {

using alm::test::read_file;
using alm::test::RunResult;
using alm::test::TempDir;

// Runs BUILD/bin/almplan with the arguments and collects its output.
RunResult run_almplan(const std::vector<std::string>& args);
std::string sample_path();
// Builds the sample plan, in version 1 or 2, at out.
RunResult build_sample(const std::string& out, bool v1);

bool file_exists(const std::string& path);

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
