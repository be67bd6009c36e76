// Small plans written record by record for the plan library tests: a header,
// workstations, schedules with their jobs, prompts, files and resources,
// linked in the order they were added. Records are raw file bytes, so tests
// can damage them before writing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/tempdir.h"
#include "plan/almrecs.h"

namespace alm::test {

using Record = std::vector<unsigned char>;

class PlanBuilder {
public:
    explicit PlanBuilder(bool v2 = true) : v2_(v2) {}

    std::uint32_t cpu(const std::string& name);
    std::uint32_t sched(const std::string& cpu, const std::string& name);
    // A job in the schedule at record sched_rec.
    std::uint32_t job(std::uint32_t sched_rec, const std::string& name);
    std::uint32_t prompt(const std::string& name);
    std::uint32_t file(const std::string& name);
    std::uint32_t resource(const std::string& cpu, const std::string& name);
    // A record of two raw type bytes and nothing else.
    std::uint32_t raw(std::uint16_t code);

    // The records of the file, chains linked.
    std::vector<Record> build() const;
    void write(const std::string& path) const;
    static void write(const std::string& path, const std::vector<Record>& recs);

    bool v2() const { return v2_; }
    int rec_size() const { return v2_ ? ALM_REC_SIZE_V2 : ALM_REC_SIZE_V1; }

private:
    enum class Kind { Cpu, Sched, Job, Prompt, File, Resource, Raw };
    struct Item {
        Kind kind;
        std::string cpu;
        std::string name;
        std::uint32_t owner = NULL_REC;  // jobs: their schedule
        std::uint16_t code = 0;
    };
    bool v2_;
    std::vector<Item> items_;  // record n is items_[n - 1]
};

// Field access on raw records by byte offset, little-endian as on disk.
void put16(Record& r, std::size_t off, std::uint16_t v);
void put32(Record& r, std::size_t off, std::uint32_t v);
// A record number field of either version (u16 in V1, u32 in V2).
void put_link(Record& r, bool v2, std::size_t off_v2, std::size_t off_v1, std::uint32_t v);

// The bytes of a file.
Record slurp(const std::string& path);

}  // namespace alm::test
