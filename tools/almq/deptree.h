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

#include "wirerecord.h"

namespace alm {

enum class DepRole { Schedule, Job, Restart, Dependency, Stray };

// A record's place in the tree. Indexes count records from 0 in reply order.
struct DepNode {
    DepRole role = DepRole::Stray;
    RecordKind kind = RecordKind::Unknown;
    int depth = 0;   // 0 schedule, 1 its jobs and dependencies, and so on
    int owner = -1;  // index of the owning record, -1 for schedules and strays
    int flag = -1;   // the owner's flag byte for this dependency, -1 if unmatched
};

// Places records one at a time, as they arrive: a record's place follows
// from the records before it, so none needs to be kept.
class DepTreeBuilder {
public:
    DepTreeBuilder();
    DepNode add(const unsigned char* rec);

private:
    int next_ = 0;      // index of the next record
    int schedule_ = -1;
    int job_ = -1;      // the queried job whose restart chain may follow
    int jobDepth_ = 0;
    int owner_ = -1;    // where dependencies attach
    int ownerDepth_ = 0;
    std::uint32_t expectedLink_;
    std::vector<DependencyEntry> entries_;  // the owner's dependency entries
    std::size_t nextEntry_ = 0;
    // The fields the tree is built from, as the dependency reply sends them.
    WireField schedNumber_;
    WireField jobNumber_;
    WireField restartPtr_;
    WireField promptNumber_;
    WireField fileNumber_;
    WireField resourceNumber_;
};

// "prompt", "SD", "JD", "file", "resource" for a dependency node.
const char* dep_kind_label(const DepNode& node);
const char* dep_role_name(DepRole role);

}  // namespace alm
