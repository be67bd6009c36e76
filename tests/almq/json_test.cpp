// almq --json: every field of the wire records decoded, checked by reading
// the lines back and comparing values that the plan description fixes, and
// values that must agree across records (chains, dependency entries) or
// across the different wire treatments of the same field.
#include <gtest/gtest.h>

#include <map>

#include "almqhome.h"
#include "minijson.h"

namespace alm::almqtest {
namespace {

std::vector<Json> json_lines(const std::vector<std::string>& args) {
    const RunResult r = sample_home().runAlmq(args);
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    std::vector<Json> out;
    std::string error;
    EXPECT_TRUE(parse_json_lines(r.out, out, error)) << error << "\n" << r.out;
    return out;
}

const Json* find_by(const std::vector<Json>& lines, const std::string& key, const std::string& value) {
    for (const Json& j : lines) {
        if (j.s(key) == value) return &j;
    }
    return nullptr;
}

constexpr std::int64_t kNullRec = 32768;

TEST(AlmqJson, InfoCarriesTheNineOpenStrings) {
    const auto lines = json_lines({"--json", "info"});
    ASSERT_EQ(lines.size(), 1u);
    const Json& j = lines[0];
    EXPECT_EQ(j.keys, (std::vector<std::string>{"plan", "return_code", "error_text", "handle", "sh_sched_date",
                                               "sh_sched_date_iso", "sh_day_start", "sh_cpu_id", "sh_mast_cpu", "sh_job_fence",
                                               "sh_alm_version"}));
    EXPECT_EQ(j.s("plan"), "Almanack");
    EXPECT_EQ(j.i("return_code"), 0);
    EXPECT_EQ(j.s("error_text"), "");
    EXPECT_GT(j.i("handle"), 0);
    EXPECT_EQ(j.i("sh_sched_date"), 20261122);
    EXPECT_EQ(j.s("sh_sched_date_iso"), "2026-11-22");
    EXPECT_EQ(j.i("sh_day_start"), 600);
    EXPECT_EQ(j.s("sh_cpu_id"), "MASTER");
    EXPECT_EQ(j.s("sh_mast_cpu"), "MASTER");
    EXPECT_EQ(j.i("sh_job_fence"), 0);
    EXPECT_EQ(j.i("sh_alm_version"), 1);
}

TEST(AlmqJson, WorkstationsDecodeEveryField) {
    const auto lines = json_lines({"--json", "cpus"});
    ASSERT_EQ(lines.size(), 3u);
    // Every field of the record layout, in record order, and the start's ISO text.
    EXPECT_EQ(lines[0].keys.size(), 45u);
    EXPECT_EQ(lines[0].keys.front(), "alm_rec_type");
    EXPECT_EQ(lines[0].keys.back(), "sci_filler5");
    EXPECT_EQ(lines[0]["sci_filler5"].items.size(), 65u);
    EXPECT_EQ(lines[0]["sci_filler4"].items.size(), 8u);
    for (const Json& j : lines) {
        EXPECT_EQ(j.i("alm_rec_type"), 0x4349);
        EXPECT_EQ(j.keys, lines[0].keys);
    }
    const Json& agent1 = lines[1];
    EXPECT_EQ(agent1.s("sci_cpu_id"), "AGENT1");
    EXPECT_EQ(agent1.s("sci_host_cpu"), "MASTER");
    EXPECT_EQ(agent1.s("sci_node_name"), "agent1.example.net");
    EXPECT_EQ(agent1.s("sci_domain_name"), "MAINDM");
    EXPECT_EQ(agent1.s("sci_domain_parent"), "MAINDM");
    EXPECT_EQ(agent1.s("sci_cpu_type"), "UNIX");
    EXPECT_EQ(agent1.i("sci_cpu_limit"), 10);
    EXPECT_EQ(agent1.i("sci_time_started"), 601);
    EXPECT_EQ(agent1.i("sci_date_started") % 86400, 0) << "a day number at 00:00 UTC";
    EXPECT_EQ(agent1.i("sci_cont_rec"), kNullRec);
    EXPECT_EQ(lines[0].i("sci_run_number"), 412);
    // The chain, with record numbers and pointers in their low-half form.
    EXPECT_EQ(lines[0].i("sci_prev_cpu_ptr"), kNullRec);
    for (std::size_t k = 0; k + 1 < lines.size(); ++k) {
        EXPECT_EQ(lines[k].i("sci_next_cpu_ptr"), lines[k + 1].i("sci_rec_num"));
        EXPECT_EQ(lines[k + 1].i("sci_prev_cpu_ptr"), lines[k].i("sci_rec_num"));
    }
    EXPECT_EQ(lines[2].i("sci_next_cpu_ptr"), kNullRec);
}

TEST(AlmqJson, SchedulesDecodeAsDeliveredDependencyEntries) {
    const auto lines = json_lines({"--json", "scheds"});
    ASSERT_EQ(lines.size(), 12u);
    EXPECT_EQ(lines[0].keys.front(), "alm_rec_type");
    EXPECT_EQ(lines[0].keys.back(), "ss_filler5");
    std::map<std::string, const Json*> byName;
    for (const Json& j : lines) {
        EXPECT_EQ(j.i("alm_rec_type"), 0x5352);
        byName[j.s("ss_cpu_id") + "#" + j.s("ss_sched_name")] = &j;
    }
    const Json& load = *byName.at("AGENT1#LOADDATA");
    EXPECT_EQ(load.i("ss_status"), 3);
    EXPECT_EQ(load.i("ss_num_jobs"), 5);
    EXPECT_EQ(load.i("ss_num_succ"), 1);
    EXPECT_EQ(load.i("ss_num_abend"), 1);
    EXPECT_EQ(load.i("ss_start_time"), 800);
    EXPECT_EQ(load["ss_sched_pri"].i("priority"), 10);
    EXPECT_EQ(load.s("ss_orig_sched"), "LOADDATA");
    ASSERT_EQ(load.i("ss_num_depends"), 1);
    ASSERT_EQ(load["ss_dependencies"].items.size(), 40u);
    ASSERT_EQ(load["ss_depend_flags"].items.size(), 40u);
    EXPECT_EQ(load["ss_depend_flags"][0].num, 3);
    // The entry is sent as the plan library delivers it; decoded, it is
    // the record number of MASTER#STARTDAY.
    EXPECT_EQ(load["ss_dependencies"][0].num, byName.at("MASTER#STARTDAY")->i("ss_rec_num"));
    const Json& endday = *byName.at("MASTER#ENDDAY");
    ASSERT_EQ(endday.i("ss_num_depends"), 3);
    EXPECT_EQ(endday["ss_dependencies"][0].num, byName.at("MASTER#REPORTS")->i("ss_rec_num"));
    EXPECT_EQ(endday["ss_dependencies"][1].num, byName.at("AGENT1#BACKUP")->i("ss_rec_num"));
    EXPECT_EQ(endday["ss_depend_flags"][2].num, 2);
    // Schedule chain: full 32-bit record numbers against low-half pointers.
    for (std::size_t k = 0; k + 1 < lines.size(); ++k) {
        EXPECT_EQ(lines[k].i("ss_next_sch_ptr"), lines[k + 1].i("ss_rec_num"));
    }
    EXPECT_EQ(lines.back().i("ss_next_sch_ptr"), kNullRec);
    const Json& billing = *byName.at("AGENT1#BILLING");
    EXPECT_EQ(billing.i("ss_until_time"), 2300);
    EXPECT_EQ(billing.i("ss_until_date"), billing.i("ss_sched_date"));
}

TEST(AlmqJson, JobsDecodeUnionsAndTheUnconvertedUntilTime) {
    const auto lines = json_lines({"--json", "jobs"});
    ASSERT_EQ(lines.size(), 26u);
    EXPECT_EQ(lines[0].keys.back(), "sj_filler1");
    std::map<std::string, const Json*> byName;
    for (const Json& j : lines) {
        EXPECT_EQ(j.i("alm_rec_type"), 0x4A52);
        byName[j.s("sj_schedule") + "." + j.s("sj_job_name")] = &j;
    }
    const Json& invoice = *byName.at("BILLING.INVOICE");
    EXPECT_EQ(invoice.i("sj_until_time"), 2300);  // sent little-endian, unlike every other time
    EXPECT_EQ(invoice.i("sj_start_time"), 1000);
    EXPECT_EQ(invoice.s("sj_job_user"), "billing");
    EXPECT_EQ(invoice["sj_fname_jname"].s("jcl_file"), "/opt/bill/invoice.sh");

    const Json& getpay = *byName.at("LOADDATA.GETPAY");
    EXPECT_EQ(getpay.i("sj_status"), 5);
    EXPECT_EQ(getpay.i("sj_restart_ptr"), byName.at("LOADDATA.RETRYPAY")->i("sj_rec_num"));
    EXPECT_EQ(byName.at("LOADDATA.RETRYPAY")->i("sj_restart_ptr"), byName.at("LOADDATA.NOTIFY")->i("sj_rec_num"));
    EXPECT_EQ(byName.at("LOADDATA.NOTIFY")->i("sj_restart_ptr"), kNullRec);

    const Json& compute = *byName.at("WEBSTATS.COMPUTE");
    ASSERT_EQ(compute.i("sj_num_depends"), 2);
    const Json& subdep = compute["subdep"];
    ASSERT_EQ(subdep["sj_depend_flags"].items.size(), 40u);
    EXPECT_EQ(subdep["sj_depend_flags"][0].num, 4);
    EXPECT_EQ(subdep["sj_depend_flags"][1].num, 31 + 2);  // a resource, two units
    EXPECT_EQ(subdep["sj_dependencies"][0].num, byName.at("WEBSTATS.COLLECT")->i("sj_rec_num"));
    // Job chain within a schedule, and each job's pointer to its schedule.
    const Json& collect = *byName.at("WEBSTATS.COLLECT");
    EXPECT_EQ(collect.i("sj_next_job_ptr"), compute.i("sj_rec_num"));
    EXPECT_EQ(compute.i("sj_prev_job_ptr"), collect.i("sj_rec_num"));
    EXPECT_EQ(compute.i("sj_sched_ptr"), collect.i("sj_sched_ptr"));
    const auto scheds = json_lines({"--json", "scheds", "AGENT2", "WEBSTATS"});
    ASSERT_EQ(scheds.size(), 1u);
    EXPECT_EQ(compute.i("sj_sched_ptr"), scheds[0].i("ss_rec_num"));
    EXPECT_EQ(scheds[0].i("ss_first_job"), collect.i("sj_rec_num"));
}

TEST(AlmqJson, DependencyRepliesDecodeTheirOwnWireForm) {
    const auto tree = json_lines({"--json", "deps", "AGENT1", "BILLING"});
    const auto jobs = json_lines({"--json", "jobs", "AGENT1", "BILLING"});
    const auto scheds = json_lines({"--json", "scheds"});
    ASSERT_EQ(jobs.size(), 2u);
    // schedule, SD, INVOICE, resource, STATEMNT, JD
    ASSERT_EQ(tree.size(), 6u);
    // The same job read through both queries decodes to the same values,
    // although the until time, the record pointer union and the dependency
    // entries travel differently.
    for (const char* name : {"INVOICE", "STATEMNT"}) {
        SCOPED_TRACE(name);
        const Json* fromJobs = find_by(jobs, "sj_job_name", name);
        const Json* fromTree = nullptr;
        for (const Json& j : tree) {
            if (j.s("role") == "job" && j.s("sj_job_name") == name) fromTree = &j;
        }
        ASSERT_NE(fromJobs, nullptr);
        ASSERT_NE(fromTree, nullptr);
        for (const std::string& key : fromJobs->keys) {
            EXPECT_EQ((*fromJobs)[key].items.size(), (*fromTree)[key].items.size()) << key;
            if ((*fromJobs)[key].type == Json::Type::Int) {
                EXPECT_EQ(fromJobs->i(key), fromTree->i(key)) << key;
            }
            if ((*fromJobs)[key].type == Json::Type::String) {
                EXPECT_EQ(fromJobs->s(key), fromTree->s(key)) << key;
            }
        }
        EXPECT_EQ((*fromJobs)["subdep"]["sj_dependencies"][0].num, (*fromTree)["subdep"]["sj_dependencies"][0].num);
    }
    EXPECT_EQ(tree[2].i("sj_until_time"), 2300);
    // The queried schedule against the same schedule from the schedule query.
    const Json* billing = find_by(scheds, "ss_sched_name", "BILLING");
    ASSERT_NE(billing, nullptr);
    EXPECT_EQ(tree[0].i("ss_rec_num"), billing->i("ss_rec_num"));
    EXPECT_EQ(tree[0]["ss_dependencies"][0].num, (*billing)["ss_dependencies"][0].num);
    // A schedule dependency carries the type code "SD" and is the record its
    // owner's entry names.
    EXPECT_EQ(tree[1].s("role"), "dependency");
    EXPECT_EQ(tree[1].s("dep_kind"), "SD");
    EXPECT_EQ(tree[1].i("dep_flag"), 3);
    EXPECT_EQ(tree[1].i("alm_rec_type"), 0x5344);
    EXPECT_EQ(tree[1].s("ss_sched_name"), "LOADDATA");
    EXPECT_EQ(tree[1].i("ss_rec_num"), tree[0]["ss_dependencies"][0].num);
    // A resource dependency: low-half counts.
    EXPECT_EQ(tree[3].s("dep_kind"), "resource");
    EXPECT_EQ(tree[3].i("alm_rec_type"), 0x5252);
    EXPECT_EQ(tree[3].s("sr_resource_name"), "DBCONN");
    EXPECT_EQ(tree[3].i("sr_num_avail"), 8);
    EXPECT_EQ(tree[3].i("sr_num_used"), 2);
    EXPECT_EQ(tree[3].i("dep_flag"), 32);
    // A job dependency carries "JD".
    EXPECT_EQ(tree[5].s("dep_kind"), "JD");
    EXPECT_EQ(tree[5].i("alm_rec_type"), 0x4A44);
    EXPECT_EQ(tree[5].s("sj_job_name"), "INVOICE");
    EXPECT_EQ(tree[5].i("owner"), 4);
}

TEST(AlmqJson, PromptsAndFilesInTheDependencyReply) {
    const auto tree = json_lines({"--json", "deps", "@", "@", "@"});
    const Json* tape = find_by(tree, "sm_msg_name", "TAPEOK");
    ASSERT_NE(tape, nullptr);
    EXPECT_EQ(tape->s("dep_kind"), "prompt");
    EXPECT_EQ(tape->i("dep_flag"), 2);
    EXPECT_EQ(tape->i("alm_rec_type"), 0x4D52);
    EXPECT_EQ(tape->s("sm_message"), "Is the backup tape mounted in drive 2? Reply YES to continue.");
    EXPECT_EQ(tape->i("sm_time_asked"), 2140);
    const Json* close = find_by(tree, "sm_msg_name", "CLOSEOK");
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->i("sm_time_resp"), 1802);
    const Json* access = find_by(tree, "sf_file_name", "/var/log/web/access.log");
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->s("dep_kind"), "file");
    EXPECT_EQ(access->i("dep_flag"), 8);
    EXPECT_EQ(access->i("sf_feq_len"), 2);
    EXPECT_EQ(access->s("sf_feq").substr(0, 2), "-s");
    EXPECT_EQ(access->s("sf_cpu_id"), "AGENT2");
    // Every line names its owner by line number, and owners come first.
    for (std::size_t k = 0; k < tree.size(); ++k) {
        const std::string role = tree[k].s("role");
        const std::int64_t owner = tree[k].i("owner");
        if (role == "schedule") {
            EXPECT_EQ(owner, -1);
            EXPECT_EQ(tree[k].i("depth"), 0);
        } else {
            ASSERT_GE(owner, 0);
            ASSERT_LT(owner, static_cast<std::int64_t>(k));
            EXPECT_EQ(tree[k].i("depth"), tree[static_cast<std::size_t>(owner)].i("depth") + 1);
        }
    }
}

TEST(AlmqJson, LogsAndPing) {
    const auto logs = json_lines({"--json", "logs"});
    ASSERT_EQ(logs.size(), 2u);
    EXPECT_EQ(logs[0].keys, std::vector<std::string>{"path"});
    EXPECT_EQ(logs[0].s("path"), sample_home().file("schedlog/M2611220600"));
    const auto pings = json_lines({"--json", "ping", "3"});
    ASSERT_EQ(pings.size(), 3u);
    for (std::size_t k = 0; k < pings.size(); ++k) {
        EXPECT_EQ(pings[k].i("seq"), static_cast<std::int64_t>(k + 1));
        EXPECT_EQ(pings[k].i("id"), static_cast<std::int64_t>(k + 1));
        EXPECT_EQ(pings[k].i("bytes"), 24);
        EXPECT_GE(pings[k].i("usec"), 0);
    }
}

// --fields: the chosen members in the order given, as JSON or as a table;
// dates beside their numbers as local ISO 8601 text, null where none.
TEST(AlmqJson, FieldsChooseMembersAndColumns) {
    const AlmqHome& home = sample_home();
    struct Case {
        std::vector<std::string> args;
        int status;
        const char* out;  // the whole output, or the error line
    } cases[] = {
        {{"--json", "--fields", "sj_until_date_iso,sj_job_name,sj_until_time", "jobs", "AGENT1", "BILLING", "INVOICE"},
         0, "{\"sj_until_date_iso\":\"2026-11-22T23:00:00-05:00\",\"sj_job_name\":\"INVOICE\",\"sj_until_time\":2300}\n"},
        {{"--fields=sj_job_name,sj_date_started_iso,sj_sched_date_iso", "jobs", "AGENT1", "LOADDATA", "GET@"}, 0,
         "sj_job_name  sj_date_started_iso        sj_sched_date_iso\n"
         "GETORD       2026-11-22T08:01:00-05:00  2026-11-22T08:00:00-05:00\n"
         "GETPAY       2026-11-22T08:02:00-05:00  -\n"},
        {{"--json", "--fields", "role,ss_sched_name,sj_job_name", "deps", "AGENT1", "LOADDATA", "GETORD"}, 0,
         "{\"role\":\"schedule\",\"ss_sched_name\":\"LOADDATA\"}\n{\"role\":\"dependency\",\"ss_sched_name\":"
         "\"STARTDAY\"}\n{\"role\":\"job\",\"sj_job_name\":\"GETORD\"}\n{\"role\":\"dependency\"}\n"},
        {{"--fields", "sh_sched_date_iso,sh_cpu_id", "info"}, 0, "sh_sched_date_iso  sh_cpu_id\n2026-11-22         MASTER\n"},
        {{"--fields", "sj_job_name,nosuch", "jobs"}, 2, "almq: no field named nosuch here (almq --json shows the names)\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const RunResult r = home.runAlmq(c.args);
        EXPECT_EQ(r.status, c.status);
        EXPECT_EQ(c.status == 0 ? r.out : r.err, c.out);
        EXPECT_EQ(c.status == 0 ? r.err : r.out, "");
    }
}

TEST(AlmqJson, TextsAreEscaped) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.buildPlanText("workstation \"A\\\"B\"\n"
                                   "  set sci_node_name \"back\\\\slash\"\n"
                                   "  set sci_user_info \"caf\303\251 \351t\351\"\n",
                                   "Almanack"));
    const RunResult r = home.runAlmq({"--json", "cpus"});
    ASSERT_EQ(r.status, 0) << r.err;
    std::vector<Json> lines;
    std::string error;
    ASSERT_TRUE(parse_json_lines(r.out, lines, error)) << error << r.out;
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].s("sci_cpu_id"), "A\"B");
    EXPECT_EQ(lines[0].s("sci_node_name"), "back\\slash");
    // UTF-8 passes through; a byte that is not UTF-8 is taken as Latin-1.
    EXPECT_EQ(lines[0].s("sci_user_info"), "caf\xC3\xA9 \xC3\xA9t\xC3\xA9");
    EXPECT_NE(r.out.find("caf\xC3\xA9 \\u00e9t\\u00e9"), std::string::npos) << r.out;
}

}  // namespace
}  // namespace alm::almqtest
