// The line-oriented plan description read by `almplan build`: records, the
// fields given for them, and references between them by name, still
// unresolved (record numbers are assigned when the plan is built).
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "plan/almrecs.h"
#include "recfields.h"

namespace alm {

enum class TargetKind : std::uint8_t { Workstation, Sched, Job, Prompt, File, Resource, Calendar, Raw };

// A record named in a dependency, restart or link line.
struct Target {
    TargetKind kind = TargetKind::Raw;
    std::string key;        // identity key of the named record (see desc_key)
    std::string shown;      // the names as written, for messages
    std::uint32_t raw = 0;  // the record number of a Raw target
    int line = 0;
};

struct DepSpec {
    std::uint8_t flag;
    Target target;
};

// A numeric field that receives the record number of a target.
struct LinkSpec {
    const FieldDesc* field;
    int index;
    Target target;
};

struct Entity {
    RecKind kind = RecKind::Header;
    int line = 0;                    // the line that opened the record
    std::string ws;                  // owning workstation (schedules, jobs, files, resources)
    std::string name;                // own name; for jobs also sched_name
    std::string sched_name;          // jobs: the schedule's name
    std::size_t sched = 0;           // jobs: index of the schedule entity
    std::vector<std::size_t> jobs;   // schedules: job entities in description order
    ALMRECTYPE rec{};                // identity and explicitly given fields
    std::bitset<ALM_REC_SIZE_V2> given;  // bytes given explicitly: the builder leaves them alone
    std::vector<DepSpec> deps;
    std::vector<LinkSpec> links;
};

struct PlanDesc {
    std::string path;            // the description's name, for messages
    std::int16_t alm_version = 1;  // 1: V2, 0: V1
    std::vector<Entity> entities;  // entities[0] is the header
    // Identity key -> entity index, one map per record kind.
    std::map<std::string, std::size_t> index[REC_KIND_COUNT];
};

// Identity keys: names joined by a NUL, which no name can hold.
std::string desc_key(std::string_view a, std::string_view b = {}, std::string_view c = {});
// The record kind a named target lives in (the header for Raw targets).
RecKind target_record_kind(TargetKind kind);

// Parses a whole description. `force_v1` stands for a `--v1` option, which
// wins over a `format` line. On failure `err` reads "PATH:LINE: problem".
bool parse_description(const std::string& path, std::string_view text, bool force_v1, PlanDesc& out,
                       std::string& err);

}  // namespace alm
