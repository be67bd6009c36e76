#include "commands.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string_view>
#include <thread>
#include <vector>

#include "damage.h"
#include "depgraph.h"
#include "deptree.h"
#include "errwords.h"
#include "hexdump.h"
#include "jsonwriter.h"
#include "linefields.h"
#include "plan/almrecs.h"
#include "planlock.h"
#include "planpath.h"
#include "planview.h"
#include "serverlink.h"
#include "texttable.h"
#include "wirerecord.h"

namespace alm {
namespace {

using Align = TextTable::Align;
constexpr bool kWide = true;  // a column of the wide form only

// The nine strings of the open reply, in order.
constexpr const char* kOpenFields[] = {"return_code", "error_text", "handle",       "sh_sched_date", "sh_day_start",
                                       "sh_cpu_id",   "sh_mast_cpu", "sh_job_fence", "sh_alm_version"};
constexpr std::size_t kOpenStrings = std::size(kOpenFields);
// The open's code for a plan that could not be locked.
constexpr const char* kLockedCode = "2";

std::string current_dir() {
    char buf[PATH_MAX];
    return ::getcwd(buf, sizeof buf) != nullptr ? std::string(buf) : std::string(".");
}

std::string absolute(const std::string& path) {
    if (path.empty() || path[0] == '/') return tidy_path(path);
    return tidy_path(current_dir() + "/" + path);
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
        : o_(o),
          json_(o.output == OutputForm::Json || (o.output == OutputForm::Table && !o.fields.empty())),
          table_(o.output == OutputForm::Table && o.fields.empty()),
          lineFields_(o.fields),
          sink_(sink),
          err_(err),
          link_(o.timeoutMs) {
        link_.keepFrames(o.output == OutputForm::Raw);
        // Tables of chosen fields are made from the JSON lines.
        if (o.output == OutputForm::Table && !o.fields.empty()) {
            std::vector<TextTable::Column> columns;
            for (const std::string& f : o.fields) columns.push_back({f});
            fieldTable_.emplace(std::move(columns));
        }
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

    TextTable::Form tableForm() const { return o_.wide ? TextTable::Form::Wide : TextTable::Form::Narrow; }

    int fail(const std::string& message) {
        err_ = "almq: " + message;
        return EXIT_SERVER;
    }
    int noMatch(const std::string& what) {
        err_ = "almq: no " + what + " matches " + pattern_text(o_.patterns);
        const bool star = std::any_of(o_.patterns.begin(), o_.patterns.end(),
                                      [](const std::string& p) { return p.find('*') != std::string::npos; });
        if (star) err_ += " (the wildcard is @, not *)";
        return EXIT_NO_MATCH;
    }

    bool openPlan(std::string& error);
    // openPlan, tried again while the plan is locked, for up to --wait.
    bool openWaiting(std::string& error);
    // EXIT_SERVER with the server's reason in words, or the lock's holder.
    int openFailure(const std::string& server);
    // EXIT_SERVER with the plan's first problem when it is damaged.
    int refuseDamaged(const std::string& server);
    bool closePlan(std::string& error);
    // The plan handle, then the patterns.
    std::vector<std::string> queryArgs() const {
        std::vector<std::string> args{open_[2]};
        args.insert(args.end(), o_.patterns.begin(), o_.patterns.end());
        return args;
    }
    // A record query: a JSON line for each record, or a row that addRow
    // puts in the table, which is printed with its count once all are in.
    int recordListing(std::uint32_t type, RecordKind kind, ReplySource source, TextTable& table,
                      const RecordHandler& addRow, const char* one, const char* many);
    // One JSON object on a line of its own, with the members that fill writes.
    void jsonLine(const std::function<void(JsonWriter&)>& fill);
    // The JSON line of a whole record.
    void recordLine(const unsigned char* rec, RecordKind kind, ReplySource source);
    void showTable(const TextTable& table);
    // The lines' chosen fields, or a usage error for a name that none had.
    int showFields();

    int ping();
    int logs();
    int info();
    int cpus();
    int scheds();
    int jobs();
    int deps();
    void depLine(const DepNode& n, const unsigned char* rec);
    void dumpFrames();

    static constexpr std::size_t kSpillBytes = 1 << 16;

    const Options& o_;
    const bool json_;   // lines of JSON, shown as such or as a table of chosen fields
    const bool table_;  // the command's own table
    LineFields lineFields_;
    std::optional<TextTable> fieldTable_;
    std::string line_;  // the JSON line being written
    std::vector<std::string> cells_;
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
    if (needsPlan && (status = refuseDamaged(server)) != EXIT_OK) return status;
    if (needsPlan && !openWaiting(error)) return error.empty() ? openFailure(server) : fail(error);
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
    if (status == EXIT_OK && !o_.fields.empty()) status = showFields();
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

bool Session::openWaiting(std::string& error) {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(o_.waitSeconds);
    for (;;) {
        if (openPlan(error)) return true;
        if (!error.empty() || open_[0] != kLockedCode || Clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
}

int Session::openFailure(const std::string& server) {
    std::string ignored;
    link_.finish(ignored);
    dumpFrames();
    const std::string prefix = "cannot open plan " + o_.plan + ": ";
    const std::string& text = open_[1];
    if (open_[0] == kLockedCode) {
        const std::string file = plan_file(plan_argument(o_.plan), server);
        const long holder = plan_lock_holder(file);
        const std::string code = message_code(text);
        if (holder > 0) {
            return fail(prefix + "the plan file " + file + " is locked by process " + std::to_string(holder) +
                        (o_.waitSeconds > 0 ? " (waited " + std::to_string(o_.waitSeconds) + " s)" : "") +
                        (code.empty() ? "" : " [" + code + "]"));
        }
    }
    return fail(prefix + (text.empty() ? "code " + open_[0] : in_words(text)));
}

int Session::refuseDamaged(const std::string& server) {
    const std::string file = plan_file(plan_argument(o_.plan), server);
    const bool jobs = o_.command == Command::Jobs || o_.command == Command::Deps;
    std::string problem;
    if (!plan_damaged(file, jobs, problem)) return EXIT_OK;
    std::string ignored;
    link_.finish(ignored);
    return fail("plan " + file + " is damaged: " + problem + " (almplan check lists every problem)");
}

bool Session::closePlan(std::string& error) {
    Reply reply;
    return link_.call(REQ_CLOSE, {open_[2]}, reply, error);
}

int Session::recordListing(std::uint32_t type, RecordKind kind, ReplySource source, TextTable& table,
                           const RecordHandler& addRow, const char* one, const char* many) {
    auto onRecord = [&](const unsigned char* rec) {
        if (json_) return recordLine(rec, kind, source);
        addRow(rec);
    };
    std::uint32_t count = 0;
    std::string error;
    if (!link_.callRecords(type, queryArgs(), onRecord, count, error)) return fail(error);
    if (count == 0) return noMatch(one);
    if (table_) {
        showTable(table);
        out_ += plural(table.rows(), one, many) + "\n";
    }
    return EXIT_OK;
}

void Session::jsonLine(const std::function<void(JsonWriter&)>& fill) {
    line_.clear();
    JsonWriter w(line_);
    w.beginObject();
    fill(w);
    w.endObject();
    if (fieldTable_) {
        lineFields_.cells(line_, cells_);
        fieldTable_->add(cells_);
        return;
    }
    lineFields_.json(line_, out_);
    out_ += '\n';
}

int Session::showFields() {
    const std::string unseen = lineFields_.unseen();
    if (!unseen.empty()) {
        out_.clear();
        err_ = "almq: no field named " + unseen + " here (almq --json shows the names)";
        return EXIT_USAGE;
    }
    if (fieldTable_) showTable(*fieldTable_);
    return EXIT_OK;
}

void Session::recordLine(const unsigned char* rec, RecordKind kind, ReplySource source) {
    jsonLine([&](JsonWriter& w) { write_record_json(rec, kind, source, w); });
    spill();
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
        if (json_) {
            jsonLine([&](JsonWriter& w) {
                w.member("seq", i);
                w.member("id", reply.header.id);
                w.member("bytes", static_cast<std::int64_t>(bytes));
                w.member("usec", static_cast<std::int64_t>(us + 0.5));
            });
        } else {
            char ms[32];
            std::snprintf(ms, sizeof ms, "%.3f ms", us / 1000);
            table.add({std::to_string(i), std::to_string(reply.header.id), std::to_string(bytes), ms});
        }
    }
    if (table_) {
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
        if (json_) {
            jsonLine([&](JsonWriter& w) { w.member("path", path); });
        } else {
            const auto slash = path.rfind('/');
            table.add({slash == std::string::npos ? path : path.substr(slash + 1), path});
        }
    }
    if (names.empty()) {
        err_ = "almq: no archived plans";
        return EXIT_NO_MATCH;
    }
    if (table_) {
        showTable(table);
        out_ += plural(names.size(), "archived plan", "archived plans") + "\n";
    }
    return EXIT_OK;
}

int Session::info() {
    if (json_) {
        jsonLine([&](JsonWriter& w) {
            w.member("plan", o_.plan);
            for (std::size_t i = 0; i < kOpenStrings; ++i) {
                const bool text = i == 1 || i == 5 || i == 6;
                if (text) {
                    w.member(kOpenFields[i], open_[i]);
                } else {
                    w.member(kOpenFields[i], to_int(open_[i]));
                }
            }
        });
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

// The fields of one kind of record, as one reply sends them.
class Fields {
public:
    Fields(RecordKind kind, ReplySource source) : kind_(kind), source_(source) {}
    WireField operator()(std::string_view name) const { return WireField(kind_, name, source_); }

private:
    RecordKind kind_;
    ReplySource source_;
};

std::string number(std::int64_t v) { return std::to_string(v); }

std::string flags_of(FlagWord which, const WireField& field, const unsigned char* rec) {
    return flag_names(which, static_cast<std::uint16_t>(field.integer(rec)));
}

int Session::cpus() {
    const Fields f(RecordKind::Workstation, ReplySource::CpuQuery);
    const WireField id = f("sci_cpu_id"), host = f("sci_host_cpu"), node = f("sci_node_name"),
                    domain = f("sci_domain_name"), parent = f("sci_domain_parent"), type = f("sci_cpu_type"),
                    status = f("sci_status"), limit = f("sci_cpu_limit"), fence = f("sci_job_fence"),
                    run = f("sci_run_number"), date = f("sci_date_started"), time = f("sci_time_started"),
                    flags = f("sci_flags");
    TextTable table({{"WORKSTATION"}, {"HOST"}, {"NODE", Align::Left, kWide}, {"DOMAIN"}, {"PARENT", Align::Left, kWide},
                     {"TYPE"}, {"STATUS"}, {"LIMIT", Align::Right}, {"FENCE", Align::Right},
                     {"RUN", Align::Right, kWide}, {"STARTED"}, {"FLAGS", Align::Left, kWide}},
                    tableForm());
    auto addRow = [&](const unsigned char* r) {
        table.add({id.text(r), host.text(r), node.text(r), domain.text(r), parent.text(r), type.text(r),
                   state_name(status.integer(r)), number(limit.integer(r)), number(fence.integer(r)),
                   number(run.integer(r)), local_date_time(date.integer(r), time.integer(r)),
                   join_flags({flags_of(FlagWord::Workstation, flags, r)})});
    };
    return recordListing(REQ_WORKSTATIONS, RecordKind::Workstation, ReplySource::CpuQuery, table, addRow, "workstation", "workstations");
}

int Session::scheds() {
    const Fields f(RecordKind::Schedule, ReplySource::SchedQuery);
    const WireField cpu = f("ss_cpu_id"), name = f("ss_sched_name"), status = f("ss_status"),
                    pri = f("ss_sched_pri"), schedDate = f("ss_sched_date"), start = f("ss_start_time"),
                    untilDate = f("ss_until_date"), untilTime = f("ss_until_time"),
                    dateStarted = f("ss_date_started"), timeStarted = f("ss_time_started"), jobs = f("ss_num_jobs"),
                    succ = f("ss_num_succ"), exec = f("ss_num_exec"), abend = f("ss_num_abend"),
                    failed = f("ss_num_failed"), depends = f("ss_num_depends"), flags = f("ss_flags"),
                    reFlags = f("ss_re_flags");
    TextTable table({{"WORKSTATION"}, {"SCHEDULE"}, {"STATUS"}, {"PRI", Align::Right, kWide}, {"START"},
                     {"UNTIL", Align::Left, kWide}, {"STARTED", Align::Left, kWide}, {"JOBS", Align::Right},
                     {"SUCC", Align::Right}, {"EXEC", Align::Right, kWide}, {"ABEND", Align::Right},
                     {"FAIL", Align::Right}, {"DEPS", Align::Right}, {"FLAGS", Align::Left, kWide}},
                    tableForm());
    auto addRow = [&](const unsigned char* r) {
        table.add({cpu.text(r), name.text(r), state_name(status.integer(r)), number(pri.integer(r)),
                   local_date_time(schedDate.integer(r), start.integer(r)),
                   local_date_time(untilDate.integer(r), untilTime.integer(r)),
                   local_date_time(dateStarted.integer(r), timeStarted.integer(r)), number(jobs.integer(r)),
                   number(succ.integer(r)), number(exec.integer(r)), number(abend.integer(r)),
                   number(failed.integer(r)), number(depends.integer(r)),
                   join_flags({flags_of(FlagWord::Schedule, flags, r), flags_of(FlagWord::ScheduleRe, reFlags, r)})});
    };
    return recordListing(REQ_SCHEDULES, RecordKind::Schedule, ReplySource::SchedQuery, table, addRow, "schedule", "schedules");
}

// What the job runs: its script file, a user job's name, or where a long
// script text is kept.
std::string script_text(const unsigned char* rec) {
    const JobScript script = job_script(rec);
    if (script.form != JobScript::Form::LongText) return script.text;
    return "(text in record " + number(script.recNum) + " at " + number(script.offset) + ")";
}

int Session::jobs() {
    const Fields f(RecordKind::Job, ReplySource::JobQuery);
    const WireField cpu = f("sj_cpu_id"), sched = f("sj_schedule"), name = f("sj_job_name"), status = f("sj_status"),
                    pri = f("sj_job_pri"), user = f("sj_job_user"), schedDate = f("sj_sched_date"),
                    start = f("sj_start_time"), dateStarted = f("sj_date_started"),
                    timeStarted = f("sj_time_started"), elapse = f("sj_elapse_time"), untilDate = f("sj_until_date"),
                    untilTime = f("sj_until_time"), depends = f("sj_num_depends"), flags = f("sj_flags"),
                    flags2 = f("sj_flags2"), reFlags = f("sj_re_flags");
    TextTable table({{"WORKSTATION"}, {"SCHEDULE"}, {"JOB"}, {"STATUS"}, {"PRI", Align::Right, kWide},
                     {"USER", Align::Left, kWide}, {"START"}, {"STARTED"}, {"ELAPSE", Align::Right, kWide},
                     {"UNTIL", Align::Left, kWide}, {"DEPS", Align::Right, kWide}, {"FLAGS", Align::Left, kWide},
                     {"SCRIPT", Align::Left, kWide}},
                    tableForm());
    auto addRow = [&](const unsigned char* r) {
        table.add({cpu.text(r), sched.text(r), name.text(r), state_name(status.integer(r)), number(pri.integer(r)),
                   user.text(r), local_date_time(schedDate.integer(r), start.integer(r)),
                   local_date_time(dateStarted.integer(r), timeStarted.integer(r)), number(elapse.integer(r)),
                   local_date_time(untilDate.integer(r), untilTime.integer(r)),
                   number(std::max<std::int64_t>(depends.integer(r), 0)),
                   join_flags({flags_of(FlagWord::Job, flags, r), flags_of(FlagWord::Job2, flags2, r),
                               flags_of(FlagWord::JobRe, reFlags, r)}),
                   script_text(r)});
    };
    return recordListing(REQ_JOBS, RecordKind::Job, ReplySource::JobQuery, table, addRow, "job", "jobs");
}

std::string when(const char* what, std::int64_t date, std::int64_t hhmm) {
    const std::string text = local_date_time(date, hhmm);
    return text == "-" ? std::string() : std::string("  ") + what + " " + text;
}

std::string quoted(const std::string& s) { return "\"" + s + "\""; }

// The lines of the dependency tree, from the fields that the dependency
// reply sends.
class TreeLines {
public:
    // One line, without its indentation.
    std::string line(const DepNode& n, const unsigned char* r) const;

private:
    const Fields ss_{RecordKind::Schedule, ReplySource::DepQuery};
    const Fields sj_{RecordKind::Job, ReplySource::DepQuery};
    const Fields sm_{RecordKind::Prompt, ReplySource::DepQuery};
    const Fields sf_{RecordKind::File, ReplySource::DepQuery};
    const Fields sr_{RecordKind::Resource, ReplySource::DepQuery};
    const WireField ssCpu_ = ss_("ss_cpu_id"), ssName_ = ss_("ss_sched_name"), ssStatus_ = ss_("ss_status"),
                    ssSchedDate_ = ss_("ss_sched_date"), ssStart_ = ss_("ss_start_time"),
                    ssDateStarted_ = ss_("ss_date_started"), ssTimeStarted_ = ss_("ss_time_started");
    const WireField sjCpu_ = sj_("sj_cpu_id"), sjSched_ = sj_("sj_schedule"), sjName_ = sj_("sj_job_name"),
                    sjStatus_ = sj_("sj_status"), sjSchedDate_ = sj_("sj_sched_date"), sjStart_ = sj_("sj_start_time"),
                    sjDateStarted_ = sj_("sj_date_started"), sjTimeStarted_ = sj_("sj_time_started");
    const WireField smName_ = sm_("sm_msg_name"), smMessage_ = sm_("sm_message"), smMore_ = sm_("sm_message_more"),
                    smDateAsked_ = sm_("sm_date_asked"), smTimeAsked_ = sm_("sm_time_asked"),
                    smDateResp_ = sm_("sm_date_resp"), smTimeResp_ = sm_("sm_time_resp");
    const WireField sfCpu_ = sf_("sf_cpu_id"), sfName_ = sf_("sf_file_name"), sfFeqLen_ = sf_("sf_feq_len"),
                    sfFeq_ = sf_("sf_feq");
    const WireField srCpu_ = sr_("sr_cpu_id"), srName_ = sr_("sr_resource_name"), srAvail_ = sr_("sr_num_avail"),
                    srUsed_ = sr_("sr_num_used");
};

std::string TreeLines::line(const DepNode& n, const unsigned char* r) const {
    const std::string pad = "  ";
    switch (n.role) {
        case DepRole::Schedule:
            return ssCpu_.text(r) + "#" + ssName_.text(r) + pad + state_name(ssStatus_.integer(r)) +
                   when("start", ssSchedDate_.integer(r), ssStart_.integer(r)) +
                   when("started", ssDateStarted_.integer(r), ssTimeStarted_.integer(r));
        case DepRole::Job:
        case DepRole::Restart:
            return std::string(n.role == DepRole::Job ? "job      " : "restart  ") + sjName_.text(r) + pad +
                   state_name(sjStatus_.integer(r)) + when("start", sjSchedDate_.integer(r), sjStart_.integer(r)) +
                   when("started", sjDateStarted_.integer(r), sjTimeStarted_.integer(r));
        case DepRole::Dependency:
        case DepRole::Stray: break;
    }
    std::string label = dep_kind_label(n);
    label.resize(9, ' ');
    switch (n.kind) {
        case RecordKind::SchedDep:
            return label + ssCpu_.text(r) + "#" + ssName_.text(r) + pad + state_name(ssStatus_.integer(r));
        case RecordKind::JobDep:
            return label + sjCpu_.text(r) + "#" + sjSched_.text(r) + "." + sjName_.text(r) + pad +
                   state_name(sjStatus_.integer(r));
        case RecordKind::Prompt: {
            std::string text = smMessage_.text(r);
            const std::string more = smMore_.text(r);
            if (!more.empty()) text += (text.size() < 80 ? " " : "") + more;
            return label + smName_.text(r) + ((n.flag & 0x7F) == LocMsgDep ? " (local)" : "") + pad + quoted(text) +
                   when("asked", smDateAsked_.integer(r), smTimeAsked_.integer(r)) +
                   when("answered", smDateResp_.integer(r), smTimeResp_.integer(r));
        }
        case RecordKind::File: {
            std::string line = label + sfCpu_.text(r) + "#" + sfName_.text(r);
            const std::int64_t feqLen = sfFeqLen_.integer(r);
            if (feqLen > 0) line += " " + sfFeq_.text(r).substr(0, static_cast<std::size_t>(feqLen));
            return line;
        }
        case RecordKind::Resource: {
            std::string line = label + srCpu_.text(r) + "#" + srName_.text(r) + pad;
            if (n.flag >= 0) line += "needs " + std::to_string((n.flag & 0x7F) - 31) + ", ";
            return line + std::to_string(srAvail_.integer(r)) + " available, " + std::to_string(srUsed_.integer(r)) +
                   " in use";
        }
        default: break;
    }
    char code[16];
    std::snprintf(code, sizeof code, "0x%04x", static_cast<unsigned>(record_type_code(r)));
    return label + "of type " + code;
}

void Session::depLine(const DepNode& n, const unsigned char* rec) {
    jsonLine([&](JsonWriter& w) {
        w.member("role", dep_role_name(n.role));
        w.member("depth", n.depth);
        w.member("owner", n.owner);
        if (n.role == DepRole::Dependency) {
            w.member("dep_kind", dep_kind_label(n));
            w.member("dep_flag", n.flag);
        }
        write_record_json(rec, n.kind, ReplySource::DepQuery, w);
    });
}

// Each record is shown as it arrives. Output goes on only at the start of
// a schedule, so what a failing reply leaves behind is whole schedules.
int Session::deps() {
    DepTreeBuilder tree;
    const TreeLines lines;
    DepGraph graph;
    std::size_t records = 0;
    std::size_t scheds = 0;
    std::size_t jobs = 0;
    std::size_t links = 0;
    std::size_t depCount = 0;
    std::size_t whole = 0;  // out_ holds whole schedules up to here
    const bool jobPattern = o_.patterns[2] != "@";
    auto onRecord = [&](const unsigned char* rec) {
        const DepNode n = tree.add(rec);
        if (n.role == DepRole::Schedule) {
            // Until a job matches a job pattern, the schedules may yet be withdrawn.
            if (jobs > 0 || !jobPattern) spill();
            whole = out_.size();
        }
        scheds += n.role == DepRole::Schedule;
        jobs += n.role == DepRole::Job;
        links += n.role == DepRole::Restart;
        depCount += n.role == DepRole::Dependency;
        if (o_.output == OutputForm::Dot) {
            graph.add(n, rec);
        } else if (json_) {
            depLine(n, rec);
        } else {
            if (n.role == DepRole::Schedule && records > 0) out_ += "\n";
            out_.append(static_cast<std::size_t>(n.depth) * 2, ' ');
            out_ += lines.line(n, rec);
            out_ += '\n';
        }
        ++records;
    };
    StreamedReply reply;
    std::string error;
    if (!link_.callStreamed(queryArgs(), reply, onRecord, error)) {
        out_.resize(whole);
        return fail(error);
    }
    if (scheds == 0) return noMatch("schedule");
    if (jobs == 0 && jobPattern) {
        out_.clear();
        return noMatch("job");
    }
    if (o_.output == OutputForm::Dot) graph.render(out_);
    if (table_) {
        out_ += "\n" + plural(scheds, "schedule", "schedules") + ", " + plural(jobs, "job", "jobs") + ", " +
                plural(links, "restart link", "restart links") + ", " +
                plural(depCount, "dependency", "dependencies");
        if (reply.count != reply.header.numData) {
            out_ += " (" + std::to_string(reply.count) + " of the " + std::to_string(reply.header.numData) +
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
