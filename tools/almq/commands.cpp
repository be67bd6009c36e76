#include "commands.h"

#include <unistd.h>

#include <chrono>
#include <climits>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "deptree.h"
#include "hexdump.h"
#include "jsonvalue.h"
#include "plan/almrecs.h"
#include "planview.h"
#include "serverlink.h"
#include "texttable.h"
#include "wirerecord.h"

namespace alm {
namespace {

using Align = TextTable::Align;

// The nine strings of the open reply, in order.
constexpr const char* kOpenFields[] = {"return_code", "error_text", "handle",       "sh_sched_date", "sh_day_start",
                                       "sh_cpu_id",   "sh_mast_cpu", "sh_job_fence", "sh_alm_version"};
constexpr std::size_t kOpenStrings = std::size(kOpenFields);

std::string current_dir() {
    char buf[PATH_MAX];
    return ::getcwd(buf, sizeof buf) != nullptr ? std::string(buf) : std::string(".");
}

std::string absolute(const std::string& path) {
    if (path.empty() || path[0] == '/') return path;
    return current_dir() + "/" + path;
}

// Plan paths are the server's: relative ones live under its home. Only a
// path that says ./ or ../ is meant from here.
std::string plan_argument(const std::string& plan) {
    if (plan == "." || plan == ".." || plan.rfind("./", 0) == 0 || plan.rfind("../", 0) == 0) {
        return absolute(plan);
    }
    return plan;
}

const char* request_name(std::uint32_t type) {
    static constexpr const char* kNames[] = {"no-operation", "exit",     "open",         "close",       "log listing",
                                             "schedules",    "jobs",     "dependencies", "workstations"};
    return type < std::size(kNames) ? kNames[type] : "request";
}

std::int64_t to_int(const std::string& s) { return std::strtoll(s.c_str(), nullptr, 10); }

std::string plural(std::size_t n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::string pattern_text(const std::vector<std::string>& patterns) {
    std::string out;
    for (const std::string& p : patterns) {
        if (!out.empty()) out += ' ';
        out += p;
    }
    return out;
}

// One server session for one subcommand.
class Session {
public:
    Session(const Options& o, OutputSink& sink, std::string& err)
        : o_(o), sink_(sink), err_(err), link_(o.timeoutMs) {
        link_.keepFrames(o.output == OutputForm::Raw);
    }

    int run();
    // Hands what is left of the output to the sink.
    void flushOutput() {
        if (o_.output != OutputForm::Raw || framesShown_) sink_.write(out_);
        out_.clear();
    }

private:
    // Long listings go out as they grow; a raw run shows frames only.
    void spill() {
        if (o_.output == OutputForm::Raw) {
            out_.clear();
        } else if (out_.size() >= kSpillBytes) {
            flushOutput();
        }
    }

    int fail(const std::string& message) {
        err_ = "almq: " + message;
        return EXIT_SERVER;
    }
    int noMatch(const std::string& what) {
        err_ = "almq: no " + what + " matches " + pattern_text(o_.patterns);
        return EXIT_NO_MATCH;
    }

    bool openPlan(std::string& error);
    bool closePlan(std::string& error);
    bool recordQuery(std::uint32_t type, Reply& reply, std::string& error);
    void showTable(const TextTable& table);

    int ping();
    int logs();
    int info();
    int cpus();
    int scheds();
    int jobs();
    int deps();
    void dumpFrames();

    static constexpr std::size_t kSpillBytes = 1 << 16;

    const Options& o_;
    OutputSink& sink_;
    std::string out_;
    bool framesShown_ = false;
    std::string& err_;
    ServerLink link_;
    std::vector<std::string> open_;  // the open reply's strings
};

int Session::run() {
    const std::string server = o_.server.empty() ? default_server_path() : absolute(o_.server);
    std::string error;
    if (!link_.start(server, error)) return fail(error);

    int status = EXIT_OK;
    const bool needsPlan = o_.command != Command::Ping && o_.command != Command::Logs;
    if (needsPlan && !openPlan(error)) {
        if (!error.empty()) return fail(error);
        const std::string code = open_[0];
        const std::string text = open_[1];
        std::string ignored;
        link_.finish(ignored);
        dumpFrames();
        return fail("cannot open plan " + o_.plan + ": code " + code + (text.empty() ? "" : ": " + text));
    }
    switch (o_.command) {
        case Command::Ping: status = ping(); break;
        case Command::Logs: status = logs(); break;
        case Command::Info: status = info(); break;
        case Command::Cpus: status = cpus(); break;
        case Command::Scheds: status = scheds(); break;
        case Command::Jobs: status = jobs(); break;
        case Command::Deps: status = deps(); break;
    }
    if (status == EXIT_SERVER) return status;
    if (needsPlan && !closePlan(error)) return fail(error);
    if (!link_.finish(error)) return fail(error);
    dumpFrames();
    return status;
}

// Answers false with an empty error when the server refused the plan.
bool Session::openPlan(std::string& error) {
    Reply reply;
    if (!link_.call(REQ_OPEN, {plan_argument(o_.plan)}, reply, error)) return false;
    open_ = reply.strings();
    if (reply.header.dataType != 0 || reply.header.numData != kOpenStrings || open_.size() < kOpenStrings) {
        error = "unexpected open reply (" + std::to_string(reply.header.numData) + " items)";
        return false;
    }
    open_.resize(kOpenStrings);
    return open_[0] == "0";
}

bool Session::closePlan(std::string& error) {
    Reply reply;
    return link_.call(REQ_CLOSE, {open_[2]}, reply, error);
}

bool Session::recordQuery(std::uint32_t type, Reply& reply, std::string& error) {
    std::vector<std::string> args{open_[2]};
    args.insert(args.end(), o_.patterns.begin(), o_.patterns.end());
    if (!link_.call(type, args, reply, error)) return false;
    if (reply.header.numData != 0 &&
        (reply.header.dataType != 1 || reply.header.bytesPerRecord != WIRE_RECORD_BYTES ||
         reply.recordCount() != reply.header.numData)) {
        error = "unexpected reply to the query (" + std::to_string(reply.header.numData) + " items of " +
                std::to_string(reply.header.bytesPerRecord) + " bytes)";
        return false;
    }
    return true;
}

void Session::showTable(const TextTable& table) {
    table.render([this](std::string_view line) {
        out_ += line;
        spill();
    });
}

void Session::dumpFrames() {
    if (o_.output != OutputForm::Raw) return;
    out_.clear();
    framesShown_ = true;
    for (const ReceivedFrame& f : link_.frames()) {
        out_ += "# reply to " + std::string(request_name(f.requestType)) + " (request type " +
                std::to_string(f.requestType) + ", id " + std::to_string(f.requestId) + "): " +
                std::to_string(f.bytes.size()) + " bytes\n";
        hex_dump(f.bytes, out_);
    }
}

int Session::ping() {
    using Clock = std::chrono::steady_clock;
    TextTable table({{"REPLY"}, {"ID", Align::Right}, {"BYTES", Align::Right}, {"TIME", Align::Right}});
    double total = 0;
    double least = 0;
    double most = 0;
    for (long i = 1; i <= o_.pingCount; ++i) {
        Reply reply;
        std::string error;
        const auto t0 = Clock::now();
        if (!link_.call(REQ_NOP, {}, reply, error)) return fail(error);
        const double us = std::chrono::duration<double, std::micro>(Clock::now() - t0).count();
        total += us;
        least = i == 1 || us < least ? us : least;
        most = us > most ? us : most;
        const std::size_t bytes = ALM_FRAME_HEADER_BYTES + reply.bodySize();
        if (o_.output == OutputForm::Json) {
            JsonValue line = JsonValue::object();
            line.set("seq", JsonValue::integer(i));
            line.set("id", JsonValue::integer(reply.header.id));
            line.set("bytes", JsonValue::integer(static_cast<std::int64_t>(bytes)));
            line.set("usec", JsonValue::integer(static_cast<std::int64_t>(us + 0.5)));
            out_ += line.dump() + "\n";
        } else {
            char ms[32];
            std::snprintf(ms, sizeof ms, "%.3f ms", us / 1000);
            table.add({std::to_string(i), std::to_string(reply.header.id), std::to_string(bytes), ms});
        }
    }
    if (o_.output == OutputForm::Table) {
        char summary[160];
        std::snprintf(summary, sizeof summary, "%ld round trips: min %.3f ms, avg %.3f ms, max %.3f ms\n",
                      o_.pingCount, least / 1000, total / 1000 / static_cast<double>(o_.pingCount), most / 1000);
        showTable(table);
        out_ += summary;
    }
    return EXIT_OK;
}

int Session::logs() {
    Reply reply;
    std::string error;
    if (!link_.call(REQ_LOGS, {}, reply, error)) return fail(error);
    std::vector<std::string> names = reply.strings();
    names.resize(std::min<std::size_t>(names.size(), reply.header.numData));
    TextTable table({{"PLAN"}, {"PATH"}});
    for (const std::string& path : names) {
        if (o_.output == OutputForm::Json) {
            JsonValue line = JsonValue::object();
            line.set("path", JsonValue::string(path));
            out_ += line.dump() + "\n";
        } else {
            const auto slash = path.rfind('/');
            table.add({slash == std::string::npos ? path : path.substr(slash + 1), path});
        }
    }
    if (names.empty()) {
        err_ = "almq: no archived plans";
        return EXIT_NO_MATCH;
    }
    if (o_.output == OutputForm::Table) {
        showTable(table);
        out_ += plural(names.size(), "archived plan", "archived plans") + "\n";
    }
    return EXIT_OK;
}

int Session::info() {
    if (o_.output == OutputForm::Json) {
        JsonValue line = JsonValue::object();
        line.set("plan", JsonValue::string(o_.plan));
        for (std::size_t i = 0; i < kOpenStrings; ++i) {
            const bool text = i == 1 || i == 5 || i == 6;
            line.set(kOpenFields[i], text ? JsonValue::string(open_[i]) : JsonValue::integer(to_int(open_[i])));
        }
        out_ += line.dump() + "\n";
        return EXIT_OK;
    }
    const std::int64_t version = to_int(open_[8]);
    TextTable table({{"FIELD"}, {"VALUE"}});
    table.add({"plan", o_.plan});
    table.add({"handle", open_[2]});
    table.add({"plan date", plan_date_text(to_int(open_[3])) + " (" + open_[3] + ")"});
    table.add({"day start", hhmm_text(to_int(open_[4]))});
    table.add({"this workstation", open_[5]});
    table.add({"master", open_[6]});
    table.add({"job fence", std::to_string(to_int(open_[7]))});
    table.add({"format", std::to_string(version) + (version != 0 ? " (512-byte records)" : " (256-byte records)")});
    showTable(table);
    return EXIT_OK;
}

int Session::cpus() {
    Reply reply;
    std::string error;
    if (!recordQuery(REQ_WORKSTATIONS, reply, error)) return fail(error);
    TextTable table({{"WORKSTATION"}, {"HOST"}, {"NODE"}, {"DOMAIN"}, {"PARENT"}, {"TYPE"},
                     {"STATUS"}, {"LIMIT", Align::Right}, {"FENCE", Align::Right}, {"RUN", Align::Right},
                     {"STARTED"}, {"FLAGS"}});
    for (std::size_t i = 0; i < reply.header.numData; ++i) {
        const JsonValue r = decode_record(reply.record(i), RecordKind::Workstation, ReplySource::CpuQuery);
        if (o_.output == OutputForm::Json) {
            out_ += r.dump() + "\n";
            spill();
            continue;
        }
        table.add({field_text(r, "sci_cpu_id"), field_text(r, "sci_host_cpu"), field_text(r, "sci_node_name"),
                   field_text(r, "sci_domain_name"), field_text(r, "sci_domain_parent"),
                   field_text(r, "sci_cpu_type"), state_name(field_int(r, "sci_status")),
                   std::to_string(field_int(r, "sci_cpu_limit")), std::to_string(field_int(r, "sci_job_fence")),
                   std::to_string(field_int(r, "sci_run_number")),
                   local_date_time(field_int(r, "sci_date_started"), field_int(r, "sci_time_started")),
                   join_flags({flag_names(FlagWord::Workstation,
                                          static_cast<std::uint16_t>(field_int(r, "sci_flags")))})});
    }
    if (reply.header.numData == 0) return noMatch("workstation");
    if (o_.output == OutputForm::Table) {
        showTable(table);
        out_ += plural(table.rows(), "workstation", "workstations") + "\n";
    }
    return EXIT_OK;
}

int Session::scheds() {
    Reply reply;
    std::string error;
    if (!recordQuery(REQ_SCHEDULES, reply, error)) return fail(error);
    TextTable table({{"WORKSTATION"}, {"SCHEDULE"}, {"STATUS"}, {"PRI", Align::Right}, {"START"}, {"UNTIL"},
                     {"STARTED"}, {"JOBS", Align::Right}, {"SUCC", Align::Right}, {"EXEC", Align::Right},
                     {"ABEND", Align::Right}, {"FAIL", Align::Right}, {"DEPS", Align::Right}, {"FLAGS"}});
    for (std::size_t i = 0; i < reply.header.numData; ++i) {
        const JsonValue r = decode_record(reply.record(i), RecordKind::Schedule, ReplySource::SchedQuery);
        if (o_.output == OutputForm::Json) {
            out_ += r.dump() + "\n";
            spill();
            continue;
        }
        const JsonValue* pri = r.find("ss_sched_pri");
        table.add({field_text(r, "ss_cpu_id"), field_text(r, "ss_sched_name"), state_name(field_int(r, "ss_status")),
                   pri != nullptr ? std::to_string(field_int(*pri, "priority")) : "",
                   local_date_time(field_int(r, "ss_sched_date"), field_int(r, "ss_start_time")),
                   local_date_time(field_int(r, "ss_until_date"), field_int(r, "ss_until_time")),
                   local_date_time(field_int(r, "ss_date_started"), field_int(r, "ss_time_started")),
                   std::to_string(field_int(r, "ss_num_jobs")), std::to_string(field_int(r, "ss_num_succ")),
                   std::to_string(field_int(r, "ss_num_exec")), std::to_string(field_int(r, "ss_num_abend")),
                   std::to_string(field_int(r, "ss_num_failed")), std::to_string(field_int(r, "ss_num_depends")),
                   join_flags({flag_names(FlagWord::Schedule, static_cast<std::uint16_t>(field_int(r, "ss_flags"))),
                               flag_names(FlagWord::ScheduleRe,
                                          static_cast<std::uint16_t>(field_int(r, "ss_re_flags")))})});
    }
    if (reply.header.numData == 0) return noMatch("schedule");
    if (o_.output == OutputForm::Table) {
        showTable(table);
        out_ += plural(table.rows(), "schedule", "schedules") + "\n";
    }
    return EXIT_OK;
}

std::string job_flags(const JsonValue& r) {
    return join_flags({flag_names(FlagWord::Job, static_cast<std::uint16_t>(field_int(r, "sj_flags"))),
                       flag_names(FlagWord::Job2, static_cast<std::uint16_t>(field_int(r, "sj_flags2"))),
                       flag_names(FlagWord::JobRe, static_cast<std::uint16_t>(field_int(r, "sj_re_flags")))});
}

// What the job runs: its script file, a user job's name, or where a long
// script text is kept.
std::string job_script(const JsonValue& r) {
    const JsonValue* f = r.find("sj_fname_jname");
    if (f == nullptr) return "";
    if (const JsonValue* v = f->find("jcl_file")) return v->asString();
    if (const JsonValue* v = f->find("real_name")) return v->asString();
    if (const JsonValue* loc = f->find("jcl_loc")) {
        return "(text in record " + std::to_string(field_int(*loc, "st_rec_num")) + " at " +
               std::to_string(field_int(*loc, "st_offset")) + ")";
    }
    return "";
}

int Session::jobs() {
    Reply reply;
    std::string error;
    if (!recordQuery(REQ_JOBS, reply, error)) return fail(error);
    TextTable table({{"WORKSTATION"}, {"SCHEDULE"}, {"JOB"}, {"STATUS"}, {"PRI", Align::Right}, {"USER"},
                     {"START"}, {"STARTED"}, {"ELAPSE", Align::Right}, {"UNTIL"}, {"DEPS", Align::Right},
                     {"FLAGS"}, {"SCRIPT"}});
    for (std::size_t i = 0; i < reply.header.numData; ++i) {
        const JsonValue r = decode_record(reply.record(i), RecordKind::Job, ReplySource::JobQuery);
        if (o_.output == OutputForm::Json) {
            out_ += r.dump() + "\n";
            spill();
            continue;
        }
        const JsonValue* pri = r.find("sj_job_pri");
        table.add({field_text(r, "sj_cpu_id"), field_text(r, "sj_schedule"), field_text(r, "sj_job_name"),
                   state_name(field_int(r, "sj_status")),
                   pri != nullptr ? std::to_string(field_int(*pri, "priority")) : "", field_text(r, "sj_job_user"),
                   local_date_time(field_int(r, "sj_sched_date"), field_int(r, "sj_start_time")),
                   local_date_time(field_int(r, "sj_date_started"), field_int(r, "sj_time_started")),
                   std::to_string(field_int(r, "sj_elapse_time")),
                   local_date_time(field_int(r, "sj_until_date"), field_int(r, "sj_until_time")),
                   std::to_string(std::max<std::int64_t>(field_int(r, "sj_num_depends"), 0)), job_flags(r),
                   job_script(r)});
    }
    if (reply.header.numData == 0) return noMatch("job");
    if (o_.output == OutputForm::Table) {
        showTable(table);
        out_ += plural(table.rows(), "job", "jobs") + "\n";
    }
    return EXIT_OK;
}

std::string when(const char* what, std::int64_t date, std::int64_t hhmm) {
    const std::string text = local_date_time(date, hhmm);
    return text == "-" ? std::string() : std::string("  ") + what + " " + text;
}

std::string quoted(const std::string& s) { return "\"" + s + "\""; }

// One line of the dependency tree, without its indentation.
std::string tree_line(const DepNode& n, const JsonValue& r) {
    const std::string pad = "  ";
    switch (n.role) {
        case DepRole::Schedule:
            return field_text(r, "ss_cpu_id") + "#" + field_text(r, "ss_sched_name") + pad +
                   state_name(field_int(r, "ss_status")) +
                   when("start", field_int(r, "ss_sched_date"), field_int(r, "ss_start_time")) +
                   when("started", field_int(r, "ss_date_started"), field_int(r, "ss_time_started"));
        case DepRole::Job:
        case DepRole::Restart:
            return std::string(n.role == DepRole::Job ? "job      " : "restart  ") + field_text(r, "sj_job_name") +
                   pad + state_name(field_int(r, "sj_status")) +
                   when("start", field_int(r, "sj_sched_date"), field_int(r, "sj_start_time")) +
                   when("started", field_int(r, "sj_date_started"), field_int(r, "sj_time_started"));
        case DepRole::Dependency:
        case DepRole::Stray: break;
    }
    std::string label = dep_kind_label(n);
    label.resize(9, ' ');
    switch (n.kind) {
        case RecordKind::SchedDep:
            return label + field_text(r, "ss_cpu_id") + "#" + field_text(r, "ss_sched_name") + pad +
                   state_name(field_int(r, "ss_status"));
        case RecordKind::JobDep:
            return label + field_text(r, "sj_cpu_id") + "#" + field_text(r, "sj_schedule") + "." +
                   field_text(r, "sj_job_name") + pad + state_name(field_int(r, "sj_status"));
        case RecordKind::Prompt: {
            std::string text = field_text(r, "sm_message");
            const std::string more = field_text(r, "sm_message_more");
            if (!more.empty()) text += (text.size() < 80 ? " " : "") + more;
            return label + field_text(r, "sm_msg_name") + ((n.flag & 0x7F) == LocMsgDep ? " (local)" : "") + pad +
                   quoted(text) + when("asked", field_int(r, "sm_date_asked"), field_int(r, "sm_time_asked")) +
                   when("answered", field_int(r, "sm_date_resp"), field_int(r, "sm_time_resp"));
        }
        case RecordKind::File: {
            std::string line = label + field_text(r, "sf_cpu_id") + "#" + field_text(r, "sf_file_name");
            const std::int64_t feqLen = field_int(r, "sf_feq_len");
            if (feqLen > 0) line += " " + field_text(r, "sf_feq").substr(0, static_cast<std::size_t>(feqLen));
            return line;
        }
        case RecordKind::Resource: {
            std::string line = label + field_text(r, "sr_cpu_id") + "#" + field_text(r, "sr_resource_name") + pad;
            if (n.flag >= 0) line += "needs " + std::to_string((n.flag & 0x7F) - 31) + ", ";
            return line + std::to_string(field_int(r, "sr_num_avail")) + " available, " +
                   std::to_string(field_int(r, "sr_num_used")) + " in use";
        }
        default: break;
    }
    char code[16];
    std::snprintf(code, sizeof code, "0x%04x", static_cast<unsigned>(field_int(r, "alm_rec_type")));
    return label + "of type " + code;
}

int Session::deps() {
    StreamedReply reply;
    std::string error;
    std::vector<std::string> args{open_[2]};
    args.insert(args.end(), o_.patterns.begin(), o_.patterns.end());
    if (!link_.callStreamed(args, reply, error)) return fail(error);
    const std::vector<DepNode> nodes = build_dep_tree(reply.records.data(), reply.count());
    std::size_t scheds = 0;
    std::size_t jobs = 0;
    std::size_t links = 0;
    std::size_t depCount = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const DepNode& n = nodes[i];
        const JsonValue record = decode_record(reply.record(i), n.kind, ReplySource::DepQuery);
        scheds += n.role == DepRole::Schedule;
        jobs += n.role == DepRole::Job;
        links += n.role == DepRole::Restart;
        depCount += n.role == DepRole::Dependency;
        if (o_.output == OutputForm::Json) {
            JsonValue line = JsonValue::object();
            line.set("role", JsonValue::string(dep_role_name(n.role)));
            line.set("depth", JsonValue::integer(n.depth));
            line.set("owner", JsonValue::integer(n.owner));
            if (n.role == DepRole::Dependency) {
                line.set("dep_kind", JsonValue::string(dep_kind_label(n)));
                line.set("dep_flag", JsonValue::integer(n.flag));
            }
            for (std::size_t k = 0; k < record.keys().size(); ++k) {
                line.set(record.keys()[k], record.items()[k]);
            }
            out_ += line.dump() + "\n";
        } else {
            if (n.role == DepRole::Schedule && i > 0) out_ += "\n";
            out_ += std::string(static_cast<std::size_t>(n.depth) * 2, ' ') + tree_line(n, record) + "\n";
        }
        spill();
    }
    if (scheds == 0) return noMatch("schedule");
    if (o_.output == OutputForm::Table) {
        out_ += "\n" + plural(scheds, "schedule", "schedules") + ", " + plural(jobs, "job", "jobs") + ", " +
                plural(links, "restart link", "restart links") + ", " +
                plural(depCount, "dependency", "dependencies");
        if (reply.count() != reply.header.numData) {
            out_ += " (" + std::to_string(reply.count()) + " of the " + std::to_string(reply.header.numData) +
                    " records announced)";
        }
        out_ += "\n";
    }
    return EXIT_OK;
}

}  // namespace

std::string default_server_path() {
    char buf[PATH_MAX];
    if (::realpath("/proc/self/exe", buf) == nullptr) return "almread";
    std::string self = buf;
    const auto slash = self.rfind('/');
    return self.substr(0, slash == std::string::npos ? 0 : slash) + "/almread";
}

int run_command(const Options& options, OutputSink& out, std::string& err) {
    Session session(options, out, err);
    const int status = session.run();
    session.flushOutput();
    return status;
}

}  // namespace alm
