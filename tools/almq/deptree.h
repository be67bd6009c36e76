// The tree behind a dependency reply. The server streams flat records; the
// tree is rebuilt from their order and type codes:
//  - a schedule record (the plan's schedule code) starts a schedule;
//  - a job record (the plan's job code) is a job of the current schedule,
//    unless its record number is the restart pointer of the job or restart
//    link just before it: then it is the next link of that job's restart
//    chain;
//  - schedule ("SD") and job ("JD") dependency records, prompts, files and
//    resources are dependencies of the nearest schedule, job or restart link
//    before them. Each is matched to its owner's dependency entries by
//    record number, in entry order, to recover the entry's flag byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jsonvalue.h"
#include "wirerecord.h"

namespace alm {

enum class DepRole { Schedule, Job, Restart, Dependency, Stray };

// One node per record, in record order; the records themselves stay in the
// reply and are decoded again when shown.
struct DepNode {
    DepRole role = DepRole::Stray;
    RecordKind kind = RecordKind::Unknown;
    int depth = 0;   // 0 schedule, 1 its jobs and dependencies, and so on
    int owner = -1;  // index of the owning node, -1 for schedules and strays
    int flag = -1;   // the owner's flag byte for this dependency, -1 if unmatched
};

// Record i at records + i * 512.
std::vector<DepNode> build_dep_tree(const unsigned char* records, std::size_t count);

// "prompt", "SD", "JD", "file", "resource" for a dependency node.
const char* dep_kind_label(const DepNode& node);
const char* dep_role_name(DepRole role);
// A decoded record's own number, from its kind's rec_num field.
std::uint32_t record_number(const JsonValue& record, RecordKind kind);

}  // namespace alm
