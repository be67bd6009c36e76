#include "almplan/plantest.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "plan/almforms.h"
#include "util/endian.h"

namespace almtest {

using namespace alm;

bool file_exists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

std::string sample_path() { return std::string(ALM_SOURCE_DIR) + "/examples/sample.plan.txt"; }

RunResult run_almplan(const std::vector<std::string>& args) {
    return alm::test::run_program(alm::test::built_program("almplan"), args);
}

RunResult build_sample(const std::string& out, bool v1) { return alm::test::build_plan(sample_path(), out, v1); }

bool Plan::load(const std::string& path) {
    bytes_ = read_file(path);
    if (bytes_.size() < static_cast<std::size_t>(ALM_REC_SIZE_V1)) return false;
    version_ = static_cast<std::int16_t>(load_le16(bytes_.data() + 254));
    rec_size_ = alm_rec_size(version_);
    count_ = static_cast<std::uint32_t>(bytes_.size() / static_cast<std::size_t>(rec_size_));
    ext_.assign(count_, ALMRECTYPE{});
    for (std::uint32_t n = 0; n < count_; ++n) {
        ALMRECTYPE_INT in;
        std::memset(&in, 0, sizeof in);
        std::memcpy(&in, raw(n), static_cast<std::size_t>(rec_size_));
        alm_i_2_e(&in, &ext_[n], version_);
    }
    return true;
}

const unsigned char* Plan::raw(std::uint32_t n) const {
    return reinterpret_cast<const unsigned char*>(bytes_.data()) + static_cast<std::size_t>(n) * rec_size_;
}

std::int16_t Plan::code(std::uint32_t n) const { return static_cast<std::int16_t>(load_le16(ext_[n].bytes)); }
std::uint32_t Plan::u32(std::uint32_t n, std::size_t off) const { return load_le32(ext_[n].bytes + off); }
std::int32_t Plan::i32(std::uint32_t n, std::size_t off) const {
    return static_cast<std::int32_t>(load_le32(ext_[n].bytes + off));
}
std::uint16_t Plan::u16(std::uint32_t n, std::size_t off) const { return load_le16(ext_[n].bytes + off); }
std::int16_t Plan::i16(std::uint32_t n, std::size_t off) const {
    return static_cast<std::int16_t>(load_le16(ext_[n].bytes + off));
}
std::string Plan::text(std::uint32_t n, std::size_t off, std::size_t width) const {
    std::string s(reinterpret_cast<const char*>(ext_[n].bytes + off), width);
    s.erase(s.find_last_not_of(' ') + 1);
    return s;
}

bool Plan::walk(std::uint32_t first, std::size_t next_off, std::vector<std::uint32_t>& out) const {
    out.clear();
    for (std::uint32_t n = first; n != NULL_REC; n = u32(n, next_off)) {
        if (n >= count_ || out.size() >= count_) return false;
        out.push_back(n);
    }
    return true;
}

namespace {

struct ChainSpec {
    const char* what;
    std::size_t first, last;
    int count_off;  // -1: no count
    std::size_t prev, next;
    std::int16_t code;
    int recnum_off;  // -1: the kind has no record number
};

std::vector<std::uint32_t> check_chain(const Plan& p, std::uint32_t owner, const ChainSpec& c) {
    std::vector<std::uint32_t> members;
    EXPECT_TRUE(p.walk(p.u32(owner, c.first), c.next, members)) << c.what << " chain loops or leaves the file";
    if (c.count_off >= 0) {
        EXPECT_EQ(p.i16(owner, static_cast<std::size_t>(c.count_off)), static_cast<std::int64_t>(members.size()))
            << c.what;
    }
    EXPECT_EQ(p.u32(owner, c.last), members.empty() ? NULL_REC : members.back()) << c.what;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const std::uint32_t n = members[i];
        EXPECT_EQ(p.code(n), c.code) << c.what << " record " << n;
        EXPECT_EQ(p.u32(n, c.prev), i == 0 ? NULL_REC : members[i - 1]) << c.what << " record " << n;
        if (c.recnum_off >= 0) {
            EXPECT_EQ(p.u32(n, static_cast<std::size_t>(c.recnum_off)), n) << c.what;
        }
    }
    return members;
}

std::int16_t expected_dep_code(std::uint8_t flag) {
    const int kind = flag & 0x7F;
    if (kind == LocMsgDep || kind == GlbMsgDep) return SM_CODE;
    if (kind == PreschedDep) return SS_CODE;
    if (kind == PrejobDep) return SJ_CODE;
    if (kind == FileDep) return SF_CODE;
    if (kind > 31) return SR_CODE;
    return 0;
}

std::int64_t check_deps(const Plan& p, std::uint32_t n, std::size_t count_off, std::size_t flags_off,
                        std::size_t recs_off) {
    const std::int16_t nd = p.i16(n, count_off);
    EXPECT_GE(nd, 0);
    EXPECT_LE(nd, MAX_DEPENDS);
    for (int i = 0; i < nd && i < MAX_DEPENDS; ++i) {
        const std::uint8_t flag = p.ext(n).bytes[flags_off + static_cast<std::size_t>(i)];
        const std::uint32_t target = p.u32(n, recs_off + 4 * static_cast<std::size_t>(i));
        if (target >= p.count()) {
            ADD_FAILURE() << "record " << n << " dependency " << i << " points past the file: " << target;
            continue;
        }
        EXPECT_NE(target, NULL_REC);
        EXPECT_EQ(p.code(target), expected_dep_code(flag)) << "record " << n << " dependency " << i;
    }
    return nd;
}

constexpr std::size_t kStateCounters[] = {
    offsetof(SS_RECTYPE, ss_num_notrun), offsetof(SS_RECTYPE, ss_num_notrun), offsetof(SS_RECTYPE, ss_num_exec),
    offsetof(SS_RECTYPE, ss_num_succ),   offsetof(SS_RECTYPE, ss_num_abend),  offsetof(SS_RECTYPE, ss_num_failed),
    offsetof(SS_RECTYPE, ss_num_skel),
};  // by job status 1..7; other codes count nowhere

}  // namespace

void expect_consistent(const Plan& p) {
    ASSERT_GE(p.count(), 1u);
    ASSERT_EQ(p.code(0), SH_CODE);
    EXPECT_EQ(p.u32(0, offsetof(SH_RECTYPE, sh_num_recs)), p.count());
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_alm_version)), p.version());

    const ChainSpec cpu{"workstation", offsetof(SH_RECTYPE, sh_first_cpu), offsetof(SH_RECTYPE, sh_last_cpu),
                        offsetof(SH_RECTYPE, sh_num_cpus), offsetof(SCI_RECTYPE, sci_prev_cpu_ptr),
                        offsetof(SCI_RECTYPE, sci_next_cpu_ptr), SCI_CODE, offsetof(SCI_RECTYPE, sci_rec_num)};
    const ChainSpec domain{"domain", offsetof(SH_RECTYPE, sh_first_domain), offsetof(SH_RECTYPE, sh_last_domain),
                           -1, offsetof(SCI_RECTYPE, sci_prev_domain_ptr),
                           offsetof(SCI_RECTYPE, sci_next_domain_ptr), SCI_CODE, -1};
    const ChainSpec msg{"prompt", offsetof(SH_RECTYPE, sh_first_msg), offsetof(SH_RECTYPE, sh_last_msg),
                        offsetof(SH_RECTYPE, sh_num_msgs), offsetof(SM_RECTYPE, sm_prev_msg),
                        offsetof(SM_RECTYPE, sm_next_msg), SM_CODE, offsetof(SM_RECTYPE, sm_rec_num)};
    const ChainSpec file{"file", offsetof(SH_RECTYPE, sh_first_file), offsetof(SH_RECTYPE, sh_last_file),
                         offsetof(SH_RECTYPE, sh_num_files), offsetof(SF_RECTYPE, sf_prev_file),
                         offsetof(SF_RECTYPE, sf_next_file), SF_CODE, offsetof(SF_RECTYPE, sf_rec_num)};
    const ChainSpec res{"resource", offsetof(SH_RECTYPE, sh_first_resource), offsetof(SH_RECTYPE, sh_last_resource),
                        offsetof(SH_RECTYPE, sh_num_resources), offsetof(SR_RECTYPE, sr_prev_resource),
                        offsetof(SR_RECTYPE, sr_next_resource), SR_CODE, offsetof(SR_RECTYPE, sr_rec_num)};
    const ChainSpec cal{"calendar", offsetof(SH_RECTYPE, sh_first_cal), offsetof(SH_RECTYPE, sh_last_cal),
                        offsetof(SH_RECTYPE, sh_num_cals), offsetof(SC_RECTYPE, sc_prev_cal),
                        offsetof(SC_RECTYPE, sc_next_cal), SC_CODE, -1};
    const ChainSpec sched{"schedule", offsetof(SH_RECTYPE, sh_first_sched), offsetof(SH_RECTYPE, sh_last_sched),
                          offsetof(SH_RECTYPE, sh_num_scheds), offsetof(SS_RECTYPE, ss_prev_sch_ptr),
                          offsetof(SS_RECTYPE, ss_next_sch_ptr), SS_CODE, offsetof(SS_RECTYPE, ss_rec_num)};
    const ChainSpec job{"job", offsetof(SS_RECTYPE, ss_first_job), offsetof(SS_RECTYPE, ss_last_job),
                        offsetof(SS_RECTYPE, ss_num_jobs), offsetof(SJ_RECTYPE, sj_prev_job_ptr),
                        offsetof(SJ_RECTYPE, sj_next_job_ptr), SJ_CODE, offsetof(SJ_RECTYPE, sj_rec_num)};

    const auto cpus = check_chain(p, 0, cpu);
    const auto doms = check_chain(p, 0, domain);
    EXPECT_EQ(std::set<std::uint32_t>(cpus.begin(), cpus.end()), std::set<std::uint32_t>(doms.begin(), doms.end()));
    const auto msgs = check_chain(p, 0, msg);
    const auto files = check_chain(p, 0, file);
    const auto ress = check_chain(p, 0, res);
    const auto cals = check_chain(p, 0, cal);
    const auto scheds = check_chain(p, 0, sched);

    std::uint64_t records = 1 + cpus.size() + msgs.size() + files.size() + ress.size() + cals.size() + scheds.size();
    std::int64_t deps = 0;
    for (std::size_t i = 0; i < scheds.size(); ++i) {
        const std::uint32_t s = scheds[i];
        if (i > 0) {
            EXPECT_LE(std::memcmp(p.ext(scheds[i - 1]).bytes + offsetof(SS_RECTYPE, ss_cpu_id),
                                  p.ext(s).bytes + offsetof(SS_RECTYPE, ss_cpu_id), 16),
                      0)
                << "schedule chain not ordered by workstation at record " << s;
        }
        deps += check_deps(p, s, offsetof(SS_RECTYPE, ss_num_depends), offsetof(SS_RECTYPE, ss_depend_flags),
                           offsetof(SS_RECTYPE, ss_dependencies));
        const auto jobs = check_chain(p, s, job);
        records += jobs.size();
        EXPECT_EQ(p.i16(s, offsetof(SS_RECTYPE, ss_num_recs)), static_cast<std::int64_t>(jobs.size() + 1));
        std::map<std::size_t, std::int64_t> totals;  // by field offset
        for (std::uint32_t j : jobs) {
            EXPECT_EQ(p.u32(j, offsetof(SJ_RECTYPE, sj_sched_ptr)), s);
            deps += check_deps(p, j, offsetof(SJ_RECTYPE, sj_num_depends),
                               offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags),
                               offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies));
            const std::int16_t st = p.i16(j, offsetof(SJ_RECTYPE, sj_status));
            if (st >= 1 && st <= 7) ++totals[kStateCounters[st - 1]];
            std::vector<std::uint32_t> restart;
            EXPECT_TRUE(p.walk(p.u32(j, offsetof(SJ_RECTYPE, sj_restart_ptr)), offsetof(SJ_RECTYPE, sj_restart_ptr),
                               restart))
                << "restart chain of job " << j;
            for (std::uint32_t r : restart) EXPECT_EQ(p.code(r), SJ_CODE) << "restart chain of job " << j;
        }
        for (std::size_t off : {offsetof(SS_RECTYPE, ss_num_notrun), offsetof(SS_RECTYPE, ss_num_exec),
                                offsetof(SS_RECTYPE, ss_num_succ), offsetof(SS_RECTYPE, ss_num_abend),
                                offsetof(SS_RECTYPE, ss_num_failed), offsetof(SS_RECTYPE, ss_num_skel)}) {
            EXPECT_EQ(p.i16(s, off), totals[off]) << "schedule " << s << " total at offset " << off;
        }
    }
    for (std::uint32_t c : cpus) {
        std::uint32_t first = NULL_REC;
        for (std::uint32_t s : scheds) {
            if (std::memcmp(p.ext(s).bytes + offsetof(SS_RECTYPE, ss_cpu_id),
                            p.ext(c).bytes + offsetof(SCI_RECTYPE, sci_cpu_id), 16) == 0) {
                first = s;
                break;
            }
        }
        EXPECT_EQ(p.u32(c, offsetof(SCI_RECTYPE, sci_first_sched)), first) << "workstation " << c;
    }
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_depends)), std::min<std::int64_t>(deps, 32767));
    if (p.count() > NULL_REC) {
        ++records;
        EXPECT_EQ(p.code(NULL_REC), ST_CODE);
        EXPECT_EQ(p.u32(NULL_REC, offsetof(ST_RECTYPE, st_rec_num)), NULL_REC);
    }
    EXPECT_EQ(records, p.count()) << "records outside every chain";
}

std::vector<std::string> schedule_names(const Plan& p) {
    std::vector<std::uint32_t> scheds;
    std::vector<std::string> names;
    if (!p.walk(p.u32(0, offsetof(SH_RECTYPE, sh_first_sched)), offsetof(SS_RECTYPE, ss_next_sch_ptr), scheds)) {
        return names;
    }
    for (std::uint32_t s : scheds) {
        names.push_back(p.text(s, offsetof(SS_RECTYPE, ss_cpu_id), 16) + " " +
                        p.text(s, offsetof(SS_RECTYPE, ss_sched_name), 16));
    }
    return names;
}

std::uint32_t find_sched(const Plan& p, const std::string& ws, const std::string& sched) {
    std::vector<std::uint32_t> scheds;
    p.walk(p.u32(0, offsetof(SH_RECTYPE, sh_first_sched)), offsetof(SS_RECTYPE, ss_next_sch_ptr), scheds);
    for (std::uint32_t s : scheds) {
        if (p.text(s, offsetof(SS_RECTYPE, ss_cpu_id), 16) == ws &&
            p.text(s, offsetof(SS_RECTYPE, ss_sched_name), 16) == sched) {
            return s;
        }
    }
    return NULL_REC;
}

std::uint32_t find_job(const Plan& p, const std::string& ws, const std::string& sched, const std::string& job) {
    const std::uint32_t s = find_sched(p, ws, sched);
    if (s == NULL_REC) return NULL_REC;
    std::vector<std::uint32_t> jobs;
    p.walk(p.u32(s, offsetof(SS_RECTYPE, ss_first_job)), offsetof(SJ_RECTYPE, sj_next_job_ptr), jobs);
    for (std::uint32_t j : jobs) {
        if (p.text(j, offsetof(SJ_RECTYPE, sj_job_name), 40) == job) return j;
    }
    return NULL_REC;
}

}  // namespace almtest
