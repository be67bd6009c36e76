// almq --json: every field of the wire records decoded, checked by reading
// the lines back and comparing values that the plan description fixes, and
// values that must agree across records (chains, dependency entries) or
// across the different wire treatments of the same field.
#include <gtest/gtest.h>

#include <map>

#include "almqhome.h"
#include "jsonlines.h"

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
        if (j.contains(key) && j.at(key) == value) return &j;
    }
    return nullptr;
}

constexpr std::int64_t kNullRec = 32768;

TEST(AlmqJson, InfoCarriesTheNineOpenStrings) {
    const auto lines = json_lines({"--json", "info"});
    ASSERT_EQ(lines.size(), 1u);
    const Json& j = lines[0];
    EXPECT_EQ(keys_of(j), (std::vector<std::string>{"plan", "return_code", "error_text", "handle", "sh_sched_date",
                                               "sh_sched_date_iso", "sh_day_start", "sh_cpu_id", "sh_mast_cpu", "sh_job_fence",
                                               "sh_alm_version"}));
    EXPECT_EQ(j.at("plan"), "Almanack");
    EXPECT_EQ(j.at("return_code"), 0);
    EXPECT_EQ(j.at("error_text"), "");
    EXPECT_GT(j.at("handle"), 0);
    EXPECT_EQ(j.at("sh_sched_date"), 20261122);
    EXPECT_EQ(j.at("sh_sched_date_iso"), "2026-11-22");
    EXPECT_EQ(j.at("sh_day_start"), 600);
    EXPECT_EQ(j.at("sh_cpu_id"), "MASTER");
    EXPECT_EQ(j.at("sh_mast_cpu"), "MASTER");
    EXPECT_EQ(j.at("sh_job_fence"), 0);
    EXPECT_EQ(j.at("sh_alm_version"), 1);
}

TEST(AlmqJson, WorkstationsDecodeEveryField) {
    const auto lines = json_lines({"--json", "cpus"});
    ASSERT_EQ(lines.size(), 3u);
    // Every field of the record layout, in record order, and the start's ISO text.
    EXPECT_EQ(keys_of(lines[0]).size(), 45u);
    EXPECT_EQ(keys_of(lines[0]).front(), "alm_rec_type");
    EXPECT_EQ(keys_of(lines[0]).back(), "sci_filler5");
    EXPECT_EQ(lines[0].at("sci_filler5").size(), 65u);
    EXPECT_EQ(lines[0].at("sci_filler4").size(), 8u);
    for (const Json& j : lines) {
        EXPECT_EQ(j.at("alm_rec_type"), 0x4349);
        EXPECT_EQ(keys_of(j), keys_of(lines[0]));
    }
    const Json& agent1 = lines[1];
    EXPECT_EQ(agent1.at("sci_cpu_id"), "AGENT1");
    EXPECT_EQ(agent1.at("sci_host_cpu"), "MASTER");
    EXPECT_EQ(agent1.at("sci_node_name"), "agent1.example.net");
    EXPECT_EQ(agent1.at("sci_domain_name"), "MAINDM");
    EXPECT_EQ(agent1.at("sci_domain_parent"), "MAINDM");
    EXPECT_EQ(agent1.at("sci_cpu_type"), "UNIX");
    EXPECT_EQ(agent1.at("sci_cpu_limit"), 10);
    EXPECT_EQ(agent1.at("sci_time_started"), 601);
    EXPECT_EQ(agent1.at("sci_date_started").get<std::int64_t>() % 86400, 0) << "a day number at 00:00 UTC";
    EXPECT_EQ(agent1.at("sci_cont_rec"), kNullRec);
    EXPECT_EQ(lines[0].at("sci_run_number"), 412);
    // The chain, with record numbers and pointers in their low-half form.
    EXPECT_EQ(lines[0].at("sci_prev_cpu_ptr"), kNullRec);
    for (std::size_t k = 0; k + 1 < lines.size(); ++k) {
        EXPECT_EQ(lines[k].at("sci_next_cpu_ptr"), lines[k + 1].at("sci_rec_num"));
        EXPECT_EQ(lines[k + 1].at("sci_prev_cpu_ptr"), lines[k].at("sci_rec_num"));
    }
    EXPECT_EQ(lines[2].at("sci_next_cpu_ptr"), kNullRec);
}

TEST(AlmqJson, SchedulesDecodeAsDeliveredDependencyEntries) {
    const auto lines = json_lines({"--json", "scheds"});
    ASSERT_EQ(lines.size(), 12u);
    EXPECT_EQ(keys_of(lines[0]).front(), "alm_rec_type");
    EXPECT_EQ(keys_of(lines[0]).back(), "ss_filler5");
    std::map<std::string, const Json*> byName;
    for (const Json& j : lines) {
        EXPECT_EQ(j.at("alm_rec_type"), 0x5352);
        byName[j.at("ss_cpu_id").get<std::string>() + "#" + j.at("ss_sched_name").get<std::string>()] = &j;
    }
    const Json& load = *byName.at("AGENT1#LOADDATA");
    EXPECT_EQ(load.at("ss_status"), 3);
    EXPECT_EQ(load.at("ss_num_jobs"), 5);
    EXPECT_EQ(load.at("ss_num_succ"), 1);
    EXPECT_EQ(load.at("ss_num_abend"), 1);
    EXPECT_EQ(load.at("ss_start_time"), 800);
    EXPECT_EQ(load.at("ss_sched_pri").at("priority"), 10);
    EXPECT_EQ(load.at("ss_orig_sched"), "LOADDATA");
    ASSERT_EQ(load.at("ss_num_depends"), 1);
    ASSERT_EQ(load.at("ss_dependencies").size(), 40u);
    ASSERT_EQ(load.at("ss_depend_flags").size(), 40u);
    EXPECT_EQ(load.at("ss_depend_flags").at(0), 3);
    // The entry is sent as the plan library delivers it; decoded, it is
    // the record number of MASTER#STARTDAY.
    EXPECT_EQ(load.at("ss_dependencies").at(0), byName.at("MASTER#STARTDAY")->at("ss_rec_num"));
    const Json& endday = *byName.at("MASTER#ENDDAY");
    ASSERT_EQ(endday.at("ss_num_depends"), 3);
    EXPECT_EQ(endday.at("ss_dependencies").at(0), byName.at("MASTER#REPORTS")->at("ss_rec_num"));
    EXPECT_EQ(endday.at("ss_dependencies").at(1), byName.at("AGENT1#BACKUP")->at("ss_rec_num"));
    EXPECT_EQ(endday.at("ss_depend_flags").at(2), 2);
    // Schedule chain: full 32-bit record numbers against low-half pointers.
    for (std::size_t k = 0; k + 1 < lines.size(); ++k) {
        EXPECT_EQ(lines[k].at("ss_next_sch_ptr"), lines[k + 1].at("ss_rec_num"));
    }
    EXPECT_EQ(lines.back().at("ss_next_sch_ptr"), kNullRec);
    const Json& billing = *byName.at("AGENT1#BILLING");
    EXPECT_EQ(billing.at("ss_until_time"), 2300);
    EXPECT_EQ(billing.at("ss_until_date"), billing.at("ss_sched_date"));
}

TEST(AlmqJson, JobsDecodeUnionsAndTheUnconvertedUntilTime) {
    const auto lines = json_lines({"--json", "jobs"});
    ASSERT_EQ(lines.size(), 26u);
    EXPECT_EQ(keys_of(lines[0]).back(), "sj_filler1");
    std::map<std::string, const Json*> byName;
    for (const Json& j : lines) {
        EXPECT_EQ(j.at("alm_rec_type"), 0x4A52);
        byName[j.at("sj_schedule").get<std::string>() + "." + j.at("sj_job_name").get<std::string>()] = &j;
    }
    const Json& invoice = *byName.at("BILLING.INVOICE");
    EXPECT_EQ(invoice.at("sj_until_time"), 2300);  // sent little-endian, unlike every other time
    EXPECT_EQ(invoice.at("sj_start_time"), 1000);
    EXPECT_EQ(invoice.at("sj_job_user"), "billing");
    EXPECT_EQ(invoice.at("sj_fname_jname").at("jcl_file"), "/opt/bill/invoice.sh");

    const Json& getpay = *byName.at("LOADDATA.GETPAY");
    EXPECT_EQ(getpay.at("sj_status"), 5);
    EXPECT_EQ(getpay.at("sj_restart_ptr"), byName.at("LOADDATA.RETRYPAY")->at("sj_rec_num"));
    EXPECT_EQ(byName.at("LOADDATA.RETRYPAY")->at("sj_restart_ptr"), byName.at("LOADDATA.NOTIFY")->at("sj_rec_num"));
    EXPECT_EQ(byName.at("LOADDATA.NOTIFY")->at("sj_restart_ptr"), kNullRec);

    const Json& compute = *byName.at("WEBSTATS.COMPUTE");
    ASSERT_EQ(compute.at("sj_num_depends"), 2);
    const Json& subdep = compute.at("subdep");
    ASSERT_EQ(subdep.at("sj_depend_flags").size(), 40u);
    EXPECT_EQ(subdep.at("sj_depend_flags").at(0), 4);
    EXPECT_EQ(subdep.at("sj_depend_flags").at(1), 31 + 2);  // a resource, two units
    EXPECT_EQ(subdep.at("sj_dependencies").at(0), byName.at("WEBSTATS.COLLECT")->at("sj_rec_num"));
    // Job chain within a schedule, and each job's pointer to its schedule.
    const Json& collect = *byName.at("WEBSTATS.COLLECT");
    EXPECT_EQ(collect.at("sj_next_job_ptr"), compute.at("sj_rec_num"));
    EXPECT_EQ(compute.at("sj_prev_job_ptr"), collect.at("sj_rec_num"));
    EXPECT_EQ(compute.at("sj_sched_ptr"), collect.at("sj_sched_ptr"));
    const auto scheds = json_lines({"--json", "scheds", "AGENT2", "WEBSTATS"});
    ASSERT_EQ(scheds.size(), 1u);
    EXPECT_EQ(compute.at("sj_sched_ptr"), scheds[0].at("ss_rec_num"));
    EXPECT_EQ(scheds[0].at("ss_first_job"), collect.at("sj_rec_num"));
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
            if (j.at("role") == "job" && j.at("sj_job_name") == name) fromTree = &j;
        }
        ASSERT_NE(fromJobs, nullptr);
        ASSERT_NE(fromTree, nullptr);
        for (const std::string& key : keys_of(*fromJobs)) {
            EXPECT_EQ(fromJobs->at(key).size(), fromTree->at(key).size()) << key;
            if (fromJobs->at(key).is_primitive()) {
                EXPECT_EQ(fromJobs->at(key), fromTree->at(key)) << key;
            }
        }
        EXPECT_EQ(fromJobs->at("subdep").at("sj_dependencies").at(0), fromTree->at("subdep").at("sj_dependencies").at(0));
    }
    EXPECT_EQ(tree[2].at("sj_until_time"), 2300);
    // The queried schedule against the same schedule from the schedule query.
    const Json* billing = find_by(scheds, "ss_sched_name", "BILLING");
    ASSERT_NE(billing, nullptr);
    EXPECT_EQ(tree[0].at("ss_rec_num"), billing->at("ss_rec_num"));
    EXPECT_EQ(tree[0].at("ss_dependencies").at(0), (*billing).at("ss_dependencies").at(0));
    // A schedule dependency carries the type code "SD" and is the record its
    // owner's entry names.
    EXPECT_EQ(tree[1].at("role"), "dependency");
    EXPECT_EQ(tree[1].at("dep_kind"), "SD");
    EXPECT_EQ(tree[1].at("dep_flag"), 3);
    EXPECT_EQ(tree[1].at("alm_rec_type"), 0x5344);
    EXPECT_EQ(tree[1].at("ss_sched_name"), "LOADDATA");
    EXPECT_EQ(tree[1].at("ss_rec_num"), tree[0].at("ss_dependencies").at(0));
    // A resource dependency: low-half counts.
    EXPECT_EQ(tree[3].at("dep_kind"), "resource");
    EXPECT_EQ(tree[3].at("alm_rec_type"), 0x5252);
    EXPECT_EQ(tree[3].at("sr_resource_name"), "DBCONN");
    EXPECT_EQ(tree[3].at("sr_num_avail"), 8);
    EXPECT_EQ(tree[3].at("sr_num_used"), 2);
    EXPECT_EQ(tree[3].at("dep_flag"), 32);
    // A job dependency carries "JD".
    EXPECT_EQ(tree[5].at("dep_kind"), "JD");
    EXPECT_EQ(tree[5].at("alm_rec_type"), 0x4A44);
    EXPECT_EQ(tree[5].at("sj_job_name"), "INVOICE");
    EXPECT_EQ(tree[5].at("owner"), 4);
}

TEST(AlmqJson, PromptsAndFilesInTheDependencyReply) {
    const auto tree = json_lines({"--json", "deps", "@", "@", "@"});
    const Json* tape = find_by(tree, "sm_msg_name", "TAPEOK");
    ASSERT_NE(tape, nullptr);
    EXPECT_EQ(tape->at("dep_kind"), "prompt");
    EXPECT_EQ(tape->at("dep_flag"), 2);
    EXPECT_EQ(tape->at("alm_rec_type"), 0x4D52);
    EXPECT_EQ(tape->at("sm_message"), "Is the backup tape mounted in drive 2? Reply YES to continue.");
    EXPECT_EQ(tape->at("sm_time_asked"), 2140);
    const Json* close = find_by(tree, "sm_msg_name", "CLOSEOK");
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->at("sm_time_resp"), 1802);
    const Json* access = find_by(tree, "sf_file_name", "/var/log/web/access.log");
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->at("dep_kind"), "file");
    EXPECT_EQ(access->at("dep_flag"), 8);
    EXPECT_EQ(access->at("sf_feq_len"), 2);
    EXPECT_EQ(access->at("sf_feq").get<std::string>().substr(0, 2), "-s");
    EXPECT_EQ(access->at("sf_cpu_id"), "AGENT2");
    // Every line names its owner by line number, and owners come first.
    for (std::size_t k = 0; k < tree.size(); ++k) {
        const std::string role = tree[k].at("role");
        const std::int64_t owner = tree[k].at("owner");
        if (role == "schedule") {
            EXPECT_EQ(owner, -1);
            EXPECT_EQ(tree[k].at("depth"), 0);
        } else {
            ASSERT_GE(owner, 0);
            ASSERT_LT(owner, static_cast<std::int64_t>(k));
            EXPECT_EQ(tree[k].at("depth"), tree[static_cast<std::size_t>(owner)].at("depth").get<std::int64_t>() + 1);
        }
    }
}

TEST(AlmqJson, LogsAndPing) {
    const auto logs = json_lines({"--json", "logs"});
    ASSERT_EQ(logs.size(), 2u);
    EXPECT_EQ(keys_of(logs[0]), std::vector<std::string>{"path"});
    EXPECT_EQ(logs[0].at("path"), sample_home().file("schedlog/M2611220600"));
    const auto pings = json_lines({"--json", "ping", "3"});
    ASSERT_EQ(pings.size(), 3u);
    for (std::size_t k = 0; k < pings.size(); ++k) {
        EXPECT_EQ(pings[k].at("seq"), static_cast<std::int64_t>(k + 1));
        EXPECT_EQ(pings[k].at("id"), static_cast<std::int64_t>(k + 1));
        EXPECT_EQ(pings[k].at("bytes"), 24);
        EXPECT_GE(pings[k].at("usec"), 0);
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
    EXPECT_EQ(lines[0].at("sci_cpu_id"), "A\"B");
    EXPECT_EQ(lines[0].at("sci_node_name"), "back\\slash");
    // UTF-8 passes through; a byte that is not UTF-8 is taken as Latin-1.
    EXPECT_EQ(lines[0].at("sci_user_info"), "caf\xC3\xA9 \xC3\xA9t\xC3\xA9");
    EXPECT_NE(r.out.find("caf\xC3\xA9 \\u00e9t\\u00e9"), std::string::npos) << r.out;
}

}  // namespace
}  // namespace alm::almqtest
