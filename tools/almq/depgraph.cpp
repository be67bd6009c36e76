#include "depgraph.h"

#include "plan/almrecs.h"
#include "planview.h"

namespace alm {
namespace {

// Text inside a DOT string: quotes and backslashes escaped, control bytes
// (which plan texts may hold) shown as '?'.
std::string dot_text(const std::string& s) {
    std::string out;
    for (const char c : s) {
        const auto b = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') out += '\\';
        out += b < 0x20 || b == 0x7F ? '?' : c;
    }
    return out;
}

std::string quoted(const std::string& s) { return "\"" + dot_text(s) + "\""; }

// A label of one or two lines.
std::string label(const std::string& first, const std::string& second = {}) {
    return "label=\"" + dot_text(first) + (second.empty() ? "" : "\\n" + dot_text(second)) + "\"";
}

WireField dep_field(RecordKind kind, const char* name) { return WireField(kind, name, ReplySource::DepQuery); }

std::string dependency_label(const DepNode& n) {
    const int k = n.flag & 0x7F;
    switch (n.kind) {
        case RecordKind::SchedDep:
        case RecordKind::JobDep: return "follows";
        case RecordKind::Prompt: return n.flag >= 0 && k == LocMsgDep ? "local prompt" : "prompt";
        case RecordKind::File: return "opens";
        case RecordKind::Resource: return n.flag >= 0 ? "needs " + std::to_string(k - 31) : "needs";
        default: break;
    }
    return dep_kind_label(n);
}

}  // namespace

DepGraph::DepGraph()
    : ssCpu_(dep_field(RecordKind::Schedule, "ss_cpu_id")),
      ssName_(dep_field(RecordKind::Schedule, "ss_sched_name")),
      ssStatus_(dep_field(RecordKind::Schedule, "ss_status")),
      sjCpu_(dep_field(RecordKind::Job, "sj_cpu_id")),
      sjSched_(dep_field(RecordKind::Job, "sj_schedule")),
      sjName_(dep_field(RecordKind::Job, "sj_job_name")),
      sjStatus_(dep_field(RecordKind::Job, "sj_status")),
      smName_(dep_field(RecordKind::Prompt, "sm_msg_name")),
      smMessage_(dep_field(RecordKind::Prompt, "sm_message")),
      sfCpu_(dep_field(RecordKind::File, "sf_cpu_id")),
      sfName_(dep_field(RecordKind::File, "sf_file_name")),
      srCpu_(dep_field(RecordKind::Resource, "sr_cpu_id")),
      srName_(dep_field(RecordKind::Resource, "sr_resource_name")),
      srAvail_(dep_field(RecordKind::Resource, "sr_num_avail")),
      srUsed_(dep_field(RecordKind::Resource, "sr_num_used")) {}

void DepGraph::declare(std::vector<Node>& group, std::string id, std::string attrs) {
    if (declared_[id]) return;
    declared_[id] = true;
    group.push_back({std::move(id), std::move(attrs)});
}

void DepGraph::edge(const std::string& from, const std::string& to, const std::string& attrs) {
    if (from.empty() || to.empty()) return;
    // A job's chain is sent again under each of its links that was queried.
    std::string line = "  " + quoted(from) + " -> " + quoted(to) + " [" + attrs + "];\n";
    if (drawn_.insert(line).second) edges_ += line;
}

std::string DepGraph::scheduleNode(const unsigned char* rec) {
    const std::string cpu = ssCpu_.text(rec), name = ssName_.text(rec);
    const std::string id = cpu + "#" + name;
    declare(workstations_[cpu].schedules[name], id,
            "shape=box, style=bold, " + label(name, state_name(ssStatus_.integer(rec))));
    return id;
}

std::string DepGraph::jobNode(const unsigned char* rec) {
    const std::string cpu = sjCpu_.text(rec), sched = sjSched_.text(rec), name = sjName_.text(rec);
    const std::string id = cpu + "#" + sched + "." + name;
    declare(workstations_[cpu].schedules[sched], id,
            "shape=box, style=rounded, " + label(name, state_name(sjStatus_.integer(rec))));
    return id;
}

std::string DepGraph::dependencyNode(const DepNode& n, const std::string& owner, const unsigned char* rec) {
    const RecordKind kind = n.kind;
    if (kind == RecordKind::Prompt) {
        // A local prompt is its job's own, apart from a global one of its name.
        const std::string name = smName_.text(rec);
        const bool local = n.flag >= 0 && (n.flag & 0x7F) == LocMsgDep;
        const std::string id = (local ? "local prompt " + owner + " " : "prompt ") + name;
        std::string text = smMessage_.text(rec);
        if (text.size() > 40) text = text.substr(0, 37) + "...";
        declare(prompts_, id, "shape=diamond, " + label(name, text));
        return id;
    }
    if (kind == RecordKind::File) {
        const std::string cpu = sfCpu_.text(rec), name = sfName_.text(rec);
        declare(workstations_[cpu].others, "file " + cpu + "#" + name, "shape=note, " + label(name));
        return "file " + cpu + "#" + name;
    }
    const std::string cpu = srCpu_.text(rec), name = srName_.text(rec);
    const std::string units = std::to_string(srAvail_.integer(rec)) + " available, " +
                              std::to_string(srUsed_.integer(rec)) + " in use";
    declare(workstations_[cpu].others, "resource " + cpu + "#" + name, "shape=cylinder, " + label(name, units));
    return "resource " + cpu + "#" + name;
}

std::string DepGraph::nodeOf(const DepNode& n, const unsigned char* rec, const std::string& owner) {
    switch (n.kind) {
        case RecordKind::Schedule:
        case RecordKind::SchedDep: return scheduleNode(rec);
        case RecordKind::Job:
        case RecordKind::JobDep: return jobNode(rec);
        case RecordKind::Prompt:
        case RecordKind::File:
        case RecordKind::Resource: return dependencyNode(n, owner, rec);
        default: break;
    }
    return {};
}

void DepGraph::add(const DepNode& n, const unsigned char* rec) {
    const std::string owner =
        n.owner >= 0 && static_cast<std::size_t>(n.owner) < ids_.size() ? ids_[static_cast<std::size_t>(n.owner)] : "";
    const std::string id = n.role == DepRole::Stray ? std::string() : nodeOf(n, rec, owner);
    ids_.push_back(id);
    // A restart chain runs link to link, from the job down.
    if (n.role == DepRole::Restart) edge(lastLink_, id, "label=\"restart\", style=dashed");
    if (n.role == DepRole::Job || n.role == DepRole::Restart) lastLink_ = id;
    if (n.role == DepRole::Dependency) edge(id, owner, label(dependency_label(n)));
}

void DepGraph::render(std::string& out) const {
    out += "digraph plan {\n  rankdir=LR;\n  node [fontsize=10];\n  edge [fontsize=9];\n";
    auto nodes = [&out](const std::vector<Node>& group, const char* indent) {
        for (const Node& node : group) out += indent + quoted(node.id) + " [" + node.attrs + "];\n";
    };
    int cluster = 0;
    for (const auto& [cpu, ws] : workstations_) {
        out += "  subgraph cluster_" + std::to_string(cluster++) + " {\n    " + label(cpu) + ";\n";
        for (const auto& [sched, group] : ws.schedules) {
            out += "    subgraph cluster_" + std::to_string(cluster++) + " {\n      " + label(sched) +
                   ";\n      style=dashed;\n";
            nodes(group, "      ");
            out += "    }\n";
        }
        nodes(ws.others, "    ");
        out += "  }\n";
    }
    nodes(prompts_, "  ");
    out += edges_ + "}\n";
}

}  // namespace alm
