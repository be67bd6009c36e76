#include "deptree.h"

#include <algorithm>

#include "plan/almrecs.h"

namespace alm {
namespace {

constexpr std::uint32_t kNoRecord = NULL_REC;

struct DepEntry {
    int flag;
    std::uint32_t rec;  // low 16 bits, as the dependency reply carries them
};

// The entries in use of a schedule's or job's dependency arrays.
std::vector<DepEntry> dep_entries(const JsonValue& owner, RecordKind kind) {
    const JsonValue* flags = nullptr;
    const JsonValue* recs = nullptr;
    std::int64_t count = 0;
    if (kind == RecordKind::Schedule) {
        flags = owner.find("ss_depend_flags");
        recs = owner.find("ss_dependencies");
        count = field_int(owner, "ss_num_depends");
    } else if (kind == RecordKind::Job) {
        if (const JsonValue* sub = owner.find("subdep")) {
            flags = sub->find("sj_depend_flags");
            recs = sub->find("sj_dependencies");
        }
        count = field_int(owner, "sj_num_depends");
    }
    std::vector<DepEntry> out;
    if (flags == nullptr || recs == nullptr) return out;
    const std::size_t n = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, MAX_DEPENDS));
    for (std::size_t i = 0; i < n && i < flags->items().size() && i < recs->items().size(); ++i) {
        out.push_back({static_cast<int>(flags->items()[i].asInt()),
                       static_cast<std::uint32_t>(recs->items()[i].asInt()) & 0xFFFFu});
    }
    return out;
}

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

}  // namespace

std::uint32_t record_number(const JsonValue& record, RecordKind kind) {
    const char* field = nullptr;
    switch (kind) {
        case RecordKind::Schedule:
        case RecordKind::SchedDep: field = "ss_rec_num"; break;
        case RecordKind::Job:
        case RecordKind::JobDep: field = "sj_rec_num"; break;
        case RecordKind::Prompt: field = "sm_rec_num"; break;
        case RecordKind::File: field = "sf_rec_num"; break;
        case RecordKind::Resource: field = "sr_rec_num"; break;
        default: return kNoRecord;
    }
    return static_cast<std::uint32_t>(field_int(record, field));
}

std::vector<DepNode> build_dep_tree(const unsigned char* records, std::size_t count) {
    std::vector<DepNode> nodes;
    nodes.reserve(count);
    int schedule = -1;
    int job = -1;    // the queried job whose restart chain may follow
    int owner = -1;  // where dependencies attach
    std::uint32_t expectedLink = kNoRecord;
    std::vector<DepEntry> entries;  // the owner's dependency entries
    std::size_t nextEntry = 0;

    for (std::size_t i = 0; i < count; ++i) {
        const unsigned char* rec = records + i * WIRE_RECORD_BYTES;
        DepNode node;
        node.kind = kind_of_record(rec);
        const JsonValue record = decode_record(rec, node.kind, ReplySource::DepQuery);
        const int index = static_cast<int>(nodes.size());
        const std::uint32_t self = record_number(record, node.kind) & 0xFFFFu;

        if (node.kind == RecordKind::Schedule || node.kind == RecordKind::Job) {
            if (node.kind == RecordKind::Schedule) {
                node.role = DepRole::Schedule;
                schedule = index;
                job = -1;
                expectedLink = kNoRecord;
            } else if (job >= 0 && expectedLink != kNoRecord && self == expectedLink) {
                node.role = DepRole::Restart;
                node.owner = job;
                node.depth = nodes[static_cast<std::size_t>(job)].depth + 1;
            } else {
                node.role = DepRole::Job;
                node.owner = schedule;
                node.depth = schedule >= 0 ? 1 : 0;
                job = index;
            }
            if (node.kind == RecordKind::Job) {
                expectedLink = static_cast<std::uint32_t>(field_int(record, "sj_restart_ptr")) & 0xFFFFu;
            }
            owner = index;
            entries = dep_entries(record, node.kind);
            nextEntry = 0;
            nodes.push_back(node);
            continue;
        }
        node.owner = owner;
        node.depth = owner >= 0 ? nodes[static_cast<std::size_t>(owner)].depth + 1 : 0;
        if (node.kind == RecordKind::Unknown || owner < 0) {
            node.role = DepRole::Stray;
            nodes.push_back(node);
            continue;
        }
        node.role = DepRole::Dependency;
        for (std::size_t e = nextEntry; e < entries.size(); ++e) {
            if (entries[e].rec == self && flag_fits(entries[e].flag, node.kind)) {
                node.flag = entries[e].flag;
                nextEntry = e + 1;
                break;
            }
        }
        nodes.push_back(node);
    }
    return nodes;
}

const char* dep_kind_label(const DepNode& node) {
    switch (node.kind) {
        case RecordKind::Prompt: return "prompt";
        case RecordKind::SchedDep: return "SD";
        case RecordKind::JobDep: return "JD";
        case RecordKind::File: return "file";
        case RecordKind::Resource: return "resource";
        default: return "record";
    }
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
