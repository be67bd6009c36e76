#include "plan_builder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <stdexcept>

#include "common/files.h"
#include "util/endian.h"

namespace alm::test {

namespace {

void pad(char* dst, std::size_t width, const std::string& name) {
    std::memset(dst, ' ', width);
    std::memcpy(dst, name.data(), name.size() < width ? name.size() : width);
}

template <class T>
Record bytes_of(const T& rec, int size) {
    Record r(static_cast<std::size_t>(size), 0);
    static_assert(sizeof(T) <= ALM_REC_SIZE_V2);
    std::memcpy(r.data(), &rec, sizeof rec);
    return r;
}

std::uint32_t neighbour(const std::vector<std::uint32_t>& chain, std::size_t i, int step) {
    if (step < 0) return i == 0 ? NULL_REC : chain[i - 1];
    return i + 1 >= chain.size() ? NULL_REC : chain[i + 1];
}

std::uint32_t first(const std::vector<std::uint32_t>& c) { return c.empty() ? NULL_REC : c.front(); }
std::uint32_t last(const std::vector<std::uint32_t>& c) { return c.empty() ? NULL_REC : c.back(); }

}  // namespace

std::uint32_t PlanBuilder::cpu(const std::string& name) {
    items_.push_back({Kind::Cpu, name, name});
    return static_cast<std::uint32_t>(items_.size());
}

std::uint32_t PlanBuilder::sched(const std::string& cpu, const std::string& name) {
    items_.push_back({Kind::Sched, cpu, name});
    return static_cast<std::uint32_t>(items_.size());
}

std::uint32_t PlanBuilder::job(std::uint32_t sched_rec, const std::string& name) {
    const Item& s = items_.at(sched_rec - 1);
    items_.push_back({Kind::Job, s.cpu, name, sched_rec});
    return static_cast<std::uint32_t>(items_.size());
}

std::uint32_t PlanBuilder::prompt(const std::string& name) {
    items_.push_back({Kind::Prompt, "", name});
    return static_cast<std::uint32_t>(items_.size());
}

std::uint32_t PlanBuilder::file(const std::string& name) {
    items_.push_back({Kind::File, "", name});
    return static_cast<std::uint32_t>(items_.size());
}

std::uint32_t PlanBuilder::resource(const std::string& cpu, const std::string& name) {
    items_.push_back({Kind::Resource, cpu, name});
    return static_cast<std::uint32_t>(items_.size());
}

std::uint32_t PlanBuilder::raw(std::uint16_t code) {
    items_.push_back({Kind::Raw, "", "", NULL_REC, code});
    return static_cast<std::uint32_t>(items_.size());
}

std::vector<Record> PlanBuilder::build() const {
    std::vector<std::uint32_t> cpus, scheds, msgs, files, rsrcs;
    std::map<std::uint32_t, std::vector<std::uint32_t>> jobs;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        auto n = static_cast<std::uint32_t>(i + 1);
        switch (items_[i].kind) {
        case Kind::Cpu: cpus.push_back(n); break;
        case Kind::Sched: scheds.push_back(n); break;
        case Kind::Job: jobs[items_[i].owner].push_back(n); break;
        case Kind::Prompt: msgs.push_back(n); break;
        case Kind::File: files.push_back(n); break;
        case Kind::Resource: rsrcs.push_back(n); break;
        case Kind::Raw: break;
        }
    }
    auto index_in = [](const std::vector<std::uint32_t>& c, std::uint32_t n) {
        for (std::size_t i = 0; i < c.size(); ++i)
            if (c[i] == n) return i;
        throw std::logic_error("record not in its chain");
    };

    const int size = rec_size();
    const auto total = static_cast<std::uint32_t>(items_.size() + 1);
    std::vector<Record> out;
    if (v2_) {
        SH_RECTYPE h{};
        h.alm_rec_type = SH_CODE;
        h.sh_cont_rec = NULL_REC;
        pad(h.sh_cpu_id, 16, "MASTER");
        pad(h.sh_mast_cpu, 16, "MASTER");
        h.sh_first_cpu = first(cpus), h.sh_last_cpu = last(cpus);
        h.sh_first_sched = first(scheds), h.sh_last_sched = last(scheds);
        h.sh_first_msg = first(msgs), h.sh_last_msg = last(msgs);
        h.sh_first_file = first(files), h.sh_last_file = last(files);
        h.sh_first_resource = first(rsrcs), h.sh_last_resource = last(rsrcs);
        h.sh_first_cal = h.sh_last_cal = h.sh_first_st = h.sh_last_st = NULL_REC;
        h.sh_first_super = h.sh_last_super = h.sh_first_domain = h.sh_last_domain = NULL_REC;
        h.sh_num_recs = total;
        h.sh_num_cpus = static_cast<std::int16_t>(cpus.size());
        h.sh_num_scheds = static_cast<std::int16_t>(scheds.size());
        h.sh_day_start = 600;
        h.sh_alm_version = 1;
        std::memset(h.sh_filler3, ' ', sizeof h.sh_filler3);
        out.push_back(bytes_of(h, size));
    } else {
        SH_RECTYPE_V1 h{};
        h.alm_rec_type = SH_CODE;
        pad(h.sh_cpu_id, 8, "MASTER");
        pad(h.sh_mast_cpu, 8, "MASTER");
        auto u16 = [](std::uint32_t v) { return static_cast<std::uint16_t>(v); };
        h.sh_first_cpu = u16(first(cpus)), h.sh_last_cpu = u16(last(cpus));
        h.sh_first_sched = u16(first(scheds)), h.sh_last_sched = u16(last(scheds));
        h.sh_first_msg = u16(first(msgs)), h.sh_last_msg = u16(last(msgs));
        h.sh_first_file = u16(first(files)), h.sh_last_file = u16(last(files));
        h.sh_first_resource = u16(first(rsrcs)), h.sh_last_resource = u16(last(rsrcs));
        h.sh_first_cal = h.sh_last_cal = h.sh_first_st = h.sh_last_st = u16(NULL_REC);
        h.sh_first_super = h.sh_last_super = h.sh_first_domain = h.sh_last_domain = u16(NULL_REC);
        h.sh_num_recs = u16(total);
        h.sh_num_cpus = static_cast<std::int16_t>(cpus.size());
        h.sh_num_scheds = static_cast<std::int16_t>(scheds.size());
        h.sh_day_start = 600;
        h.sh_alm_version = 0;
        out.push_back(bytes_of(h, size));
    }

    for (std::size_t i = 0; i < items_.size(); ++i) {
        const Item& it = items_[i];
        const auto n = static_cast<std::uint32_t>(i + 1);
        Record r;
        switch (it.kind) {
        case Kind::Cpu: {
            std::size_t k = index_in(cpus, n);
            if (v2_) {
                SCI_RECTYPE c{};
                c.alm_rec_type = SCI_CODE;
                c.sci_rec_num = n;
                c.sci_cont_rec = NULL_REC;
                pad(c.sci_cpu_id, 16, it.name);
                pad(c.sci_host_cpu, 16, "MASTER");
                c.sci_first_sched = NULL_REC;
                c.sci_prev_cpu_ptr = neighbour(cpus, k, -1);
                c.sci_next_cpu_ptr = neighbour(cpus, k, 1);
                c.sci_prev_domain_ptr = c.sci_next_domain_ptr = NULL_REC;
                r = bytes_of(c, size);
            } else {
                SCI_RECTYPE_V1 c{};
                c.alm_rec_type = SCI_CODE;
                c.sci_rec_num = static_cast<std::uint16_t>(n);
                pad(c.sci_cpu_id, 8, it.name);
                pad(c.sci_host_cpu, 8, "MASTER");
                c.sci_first_sched = static_cast<std::uint16_t>(NULL_REC);
                c.sci_prev_cpu_ptr = static_cast<std::uint16_t>(neighbour(cpus, k, -1));
                c.sci_next_cpu_ptr = static_cast<std::uint16_t>(neighbour(cpus, k, 1));
                c.sci_prev_domain_ptr = c.sci_next_domain_ptr = static_cast<std::uint16_t>(NULL_REC);
                r = bytes_of(c, size);
            }
            break;
        }
        case Kind::Sched: {
            std::size_t k = index_in(scheds, n);
            const auto& js = jobs[n];
            if (v2_) {
                SS_RECTYPE s{};
                s.alm_rec_type = SS_CODE;
                s.ss_rec_num = n;
                s.ss_cont_rec = NULL_REC;
                pad(s.ss_cpu_id, 16, it.cpu);
                pad(s.ss_sched_name, 16, it.name);
                s.ss_num_jobs = static_cast<std::int16_t>(js.size());
                s.ss_first_job = first(js);
                s.ss_last_job = last(js);
                s.ss_prev_sch_ptr = neighbour(scheds, k, -1);
                s.ss_next_sch_ptr = neighbour(scheds, k, 1);
                r = bytes_of(s, size);
            } else {
                SS_RECTYPE_V1 s{};
                s.alm_rec_type = SS_CODE;
                s.ss_rec_num = static_cast<std::uint16_t>(n);
                pad(s.ss_cpu_id, 8, it.cpu);
                pad(s.ss_sched_name, 8, it.name);
                s.ss_num_jobs = static_cast<std::int16_t>(js.size());
                s.ss_first_job = static_cast<std::uint16_t>(first(js));
                s.ss_last_job = static_cast<std::uint16_t>(last(js));
                s.ss_prev_sch_ptr = static_cast<std::uint16_t>(neighbour(scheds, k, -1));
                s.ss_next_sch_ptr = static_cast<std::uint16_t>(neighbour(scheds, k, 1));
                r = bytes_of(s, size);
            }
            break;
        }
        case Kind::Job: {
            const auto& js = jobs[it.owner];
            std::size_t k = index_in(js, n);
            const Item& s = items_[it.owner - 1];
            if (v2_) {
                SJ_RECTYPE j{};
                j.alm_rec_type = SJ_CODE;
                j.sj_rec_num = n;
                j.sj_cont_rec = NULL_REC;
                pad(j.sj_cpu_id, 16, it.cpu);
                pad(j.sj_job_name, 40, it.name);
                pad(j.sj_schedule, 16, s.name);
                j.sj_sched_ptr = it.owner;
                j.sj_prev_job_ptr = neighbour(js, k, -1);
                j.sj_next_job_ptr = neighbour(js, k, 1);
                j.sj_re_job_ptr = j.sj_re_prmpt_ptr = j.sj_restart_ptr = NULL_REC;
                r = bytes_of(j, size);
            } else {
                SJ_RECTYPE_V1 j{};
                j.alm_rec_type = SJ_CODE;
                j.sj_rec_num = static_cast<std::uint16_t>(n);
                pad(j.sj_cpu_id, 8, it.cpu);
                pad(j.sj_job_name, 8, it.name);
                pad(j.sj_schedule, 8, s.name);
                j.sj_sched_ptr = static_cast<std::uint16_t>(it.owner);
                j.sj_prev_job_ptr = static_cast<std::uint16_t>(neighbour(js, k, -1));
                j.sj_next_job_ptr = static_cast<std::uint16_t>(neighbour(js, k, 1));
                j.sj_re_job_ptr = j.sj_re_prmpt_ptr = j.sj_restart_ptr = static_cast<std::uint16_t>(NULL_REC);
                r = bytes_of(j, size);
            }
            break;
        }
        case Kind::Prompt: {
            std::size_t k = index_in(msgs, n);
            SM_RECTYPE m{};
            m.alm_rec_type = SM_CODE;
            m.sm_rec_num = n;
            m.sm_cont_rec = NULL_REC;
            pad(m.sm_msg_name, 8, it.name);
            m.sm_prev_msg = neighbour(msgs, k, -1);
            m.sm_next_msg = neighbour(msgs, k, 1);
            m.sm_job_ptr = NULL_REC;
            r = bytes_of(m, size);
            break;
        }
        case Kind::File: {
            std::size_t k = index_in(files, n);
            SF_RECTYPE f{};
            f.alm_rec_type = SF_CODE;
            f.sf_rec_num = n;
            f.sf_cont_rec = NULL_REC;
            pad(f.sf_file_name, 28, it.name);
            f.sf_prev_file = neighbour(files, k, -1);
            f.sf_next_file = neighbour(files, k, 1);
            r = bytes_of(f, size);
            break;
        }
        case Kind::Resource: {
            std::size_t k = index_in(rsrcs, n);
            SR_RECTYPE s{};
            s.alm_rec_type = SR_CODE;
            s.sr_rec_num = n;
            s.sr_cont_rec = NULL_REC;
            pad(s.sr_cpu_id, 16, it.cpu);
            pad(s.sr_resource_name, 8, it.name);
            s.sr_prev_resource = neighbour(rsrcs, k, -1);
            s.sr_next_resource = neighbour(rsrcs, k, 1);
            s.sr_num_avail = 3;
            r = bytes_of(s, size);
            break;
        }
        case Kind::Raw:
            r.assign(static_cast<std::size_t>(size), 0);
            put16(r, 0, it.code);
            break;
        }
        out.push_back(std::move(r));
    }
    return out;
}

void PlanBuilder::write(const std::string& path) const { write(path, build()); }

void PlanBuilder::write(const std::string& path, const std::vector<Record>& recs) {
    int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) throw std::runtime_error("cannot create " + path);
    for (const Record& r : recs) {
        if (::write(fd, r.data(), r.size()) != static_cast<ssize_t>(r.size())) {
            ::close(fd);
            throw std::runtime_error("cannot write " + path);
        }
    }
    ::close(fd);
}

void put16(Record& r, std::size_t off, std::uint16_t v) { store_le16(r.data() + off, v); }
void put32(Record& r, std::size_t off, std::uint32_t v) { store_le32(r.data() + off, v); }
void put_link(Record& r, bool v2, std::size_t off_v2, std::size_t off_v1, std::uint32_t v) {
    if (v2)
        put32(r, off_v2, v);
    else
        put16(r, off_v1, static_cast<std::uint16_t>(v));
}

Record slurp(const std::string& path) {
    const std::string bytes = read_file(path);
    return Record(bytes.begin(), bytes.end());
}

}  // namespace alm::test
