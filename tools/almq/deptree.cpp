#include "deptree.h"

#include "plan/almrecs.h"

namespace alm {
namespace {

constexpr std::uint32_t kNoRecord = NULL_REC;

bool flag_fits(int flag, RecordKind kind) {
    const int k = flag & 0x7F;
    switch (kind) {
        case RecordKind::Prompt: return k == LocMsgDep || k == GlbMsgDep;
        case RecordKind::SchedDep: return k == PreschedDep;
        case RecordKind::JobDep: return k == PrejobDep;
        case RecordKind::File: return k == FileDep;
        case RecordKind::Resource: return k > 31;
        default: return false;
    }
}

WireField dep_field(RecordKind kind, std::string_view name) { return WireField(kind, name, ReplySource::DepQuery); }

}  // namespace

DepTreeBuilder::DepTreeBuilder()
    : expectedLink_(kNoRecord),
      schedNumber_(dep_field(RecordKind::Schedule, "ss_rec_num")),
      jobNumber_(dep_field(RecordKind::Job, "sj_rec_num")),
      restartPtr_(dep_field(RecordKind::Job, "sj_restart_ptr")),
      promptNumber_(dep_field(RecordKind::Prompt, "sm_rec_num")),
      fileNumber_(dep_field(RecordKind::File, "sf_rec_num")),
      resourceNumber_(dep_field(RecordKind::Resource, "sr_rec_num")) {}

DepNode DepTreeBuilder::add(const unsigned char* rec) {
    DepNode node;
    node.kind = kind_of_record(rec);
    const int index = next_++;
    std::uint32_t self = kNoRecord;
    switch (node.kind) {
        case RecordKind::Schedule:
        case RecordKind::SchedDep: self = static_cast<std::uint32_t>(schedNumber_.integer(rec)); break;
        case RecordKind::Job:
        case RecordKind::JobDep: self = static_cast<std::uint32_t>(jobNumber_.integer(rec)); break;
        case RecordKind::Prompt: self = static_cast<std::uint32_t>(promptNumber_.integer(rec)); break;
        case RecordKind::File: self = static_cast<std::uint32_t>(fileNumber_.integer(rec)); break;
        case RecordKind::Resource: self = static_cast<std::uint32_t>(resourceNumber_.integer(rec)); break;
        default: break;
    }
    self &= 0xFFFFu;

    if (node.kind == RecordKind::Schedule || node.kind == RecordKind::Job) {
        if (node.kind == RecordKind::Schedule) {
            node.role = DepRole::Schedule;
            schedule_ = index;
            job_ = -1;
            expectedLink_ = kNoRecord;
        } else if (job_ >= 0 && expectedLink_ != kNoRecord && self == expectedLink_) {
            node.role = DepRole::Restart;
            node.owner = job_;
            node.depth = jobDepth_ + 1;
        } else {
            node.role = DepRole::Job;
            node.owner = schedule_;
            node.depth = schedule_ >= 0 ? 1 : 0;
            job_ = index;
            jobDepth_ = node.depth;
        }
        if (node.kind == RecordKind::Job) {
            expectedLink_ = static_cast<std::uint32_t>(restartPtr_.integer(rec)) & 0xFFFFu;
        }
        owner_ = index;
        ownerDepth_ = node.depth;
        dependency_entries(rec, node.kind, ReplySource::DepQuery, entries_);
        nextEntry_ = 0;
        return node;
    }
    node.owner = owner_;
    node.depth = owner_ >= 0 ? ownerDepth_ + 1 : 0;
    if (node.kind == RecordKind::Unknown || owner_ < 0) {
        node.role = DepRole::Stray;
        return node;
    }
    node.role = DepRole::Dependency;
    for (std::size_t e = nextEntry_; e < entries_.size(); ++e) {
        if ((entries_[e].record & 0xFFFFu) == self && flag_fits(entries_[e].flag, node.kind)) {
            node.flag = entries_[e].flag;
            nextEntry_ = e + 1;
            break;
        }
    }
    return node;
}

const char* dep_kind_label(const DepNode& node) {
    switch (node.kind) {
        case RecordKind::Prompt: return "prompt";
        case RecordKind::SchedDep: return "SD";
        case RecordKind::JobDep: return "JD";
        case RecordKind::File: return "file";
        case RecordKind::Resource: return "resource";
        default: break;
    }
    return "record";
}

const char* dep_role_name(DepRole role) {
    switch (role) {
        case DepRole::Schedule: return "schedule";
        case DepRole::Job: return "job";
        case DepRole::Restart: return "restart";
        case DepRole::Dependency: return "dependency";
        case DepRole::Stray: break;
    }
    return "stray";
}

}  // namespace alm
