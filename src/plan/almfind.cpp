// Lookups of workstations, schedules and jobs by name patterns along the plan's chains.
#include "plan/almfind.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "util/patmatch.h"

namespace alm {

// The schedule chain as one walk of it found it, kept while a read-ahead
// scope is open: lets a schedule walk with plain names (the names of a
// schedule, as the dependency listing's job lookups use them) go straight
// to where it ends instead of reading every schedule before that.
struct alm_sched_index {
    struct Entry {
        std::uint32_t rec;
        std::uint8_t cpu_len;    // the names as the matcher compares them: trimmed
        std::uint8_t sched_len;
        char cpu[sizeof(SS_RECTYPE::ss_cpu_id)];
        char sched[sizeof(SS_RECTYPE::ss_sched_name)];

        std::string_view cpu_name() const { return {cpu, cpu_len}; }
        std::string_view sched_name() const { return {sched, sched_len}; }
    };
    bool usable = false;
    std::vector<Entry> chain;
    // (record, position in the chain), by record.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> position;
    // Positions in the chain by workstation name, schedule name, position.
    std::vector<std::uint32_t> by_names;
};

void alm_sched_index_free::operator()(alm_sched_index* index) const noexcept {
    std::default_delete<alm_sched_index>{}(index);
}

namespace {

struct NameWidths {
    int cpu;
    int sched;
    int job;
};
constexpr NameWidths WIDTHS_V1{8, 8, 8};
constexpr NameWidths WIDTHS_V2{16, 16, 40};

NameWidths widths(const alm_comarea* ca) { return ca->sh_rec->sh_alm_version != 0 ? WIDTHS_V2 : WIDTHS_V1; }

bool is_space(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

struct Pattern {
    const char* text;
    int len;
    bool any;  // empty or a lone "@": the default matcher takes every name
};

// Up to the field width or a NUL, without trailing white space.
Pattern prepare(const char* name, int width) {
    if (name == nullptr) return {nullptr, 0, true};
    int n = 0;
    while (n < width && name[n] != '\0') ++n;
    while (n > 0 && is_space(static_cast<unsigned char>(name[n - 1]))) --n;
    return {name, n, n == 0 || (n == 1 && name[0] == '@')};
}

bool matches(const alm_comarea* ca, const char* field, int width, const Pattern& p) {
    alm_match_fn fn = ca->match != nullptr ? ca->match : c_patternmatch;
    if (p.any && fn == c_patternmatch) return true;
    return fn(field, p.text, width, p.len) != 0;
}

// Only the session's wildcards make a workstation name a pattern for the
// early stop; "$", "#", "^" and "~" still match as patterns but do not count.
bool holds_wildcard(const alm_comarea* ca, const Pattern& p) {
    const char* w = ca->wildcards != nullptr ? ca->wildcards : "";
    for (int i = 0; i < p.len; ++i)
        if (p.text[i] != '\0' && std::strchr(w, p.text[i]) != nullptr) return true;
    return false;
}

// Record 0 is the header and never in a chain: deliberately, a link to it
// ends the chain like the null record (a cursor of 0 would restart the walk).
std::uint32_t link(std::uint32_t recnum) { return recnum == 0 ? NULL_REC : recnum; }

void begin_walk(alm_walk& w, std::uint32_t start) {
    if (start == 0 || start != w.cursor_out) w.steps = 0;
}

void not_found(alm_comarea* ca, std::int16_t expected) {
    ca->err_type = ALM_E_NOTFOUND;
    ca->err_num = 0;
    ca->expected_type = expected;
    ca->found_type = 0;
}

// From the header; NULL_REC after a failed read.
bool first_of_chain(alm_comarea* ca, std::uint32_t SH_RECTYPE::*head, std::uint32_t& start) {
    SH_RECTYPE hdr{};
    if (alm_read_header(ca, &hdr) == -1) return false;
    start = link(hdr.*head);
    return true;
}

enum class WalkEnd { Found, End, Stopped, ReadFailed };

struct SchedQuery {
    Pattern cpu;
    Pattern sched;
    bool cpu_is_pattern;
    NameWidths w;
};

// A name the matcher can only match byte for byte, once trimmed.
bool is_plain(const Pattern& p) {
    if (p.len <= 0) return false;
    for (int i = 0; i < p.len; ++i) {
        const auto c = static_cast<unsigned char>(p.text[i]);
        if (std::strchr("@?$%#^~", c) != nullptr || is_space(c)) return false;
    }
    return true;
}


// One walk of the whole schedule chain; unusable when a read fails, the
// chain loops or its workstations are out of order.
std::unique_ptr<alm_sched_index> build_sched_index(alm_comarea* ca, const NameWidths& w) {
    auto index = std::make_unique<alm_sched_index>();
    SH_RECTYPE hdr{};
    SS_RECTYPE ss{};
    bool usable = alm_read_header(ca, &hdr) != -1;
    std::uint32_t rec = usable ? link(hdr.sh_first_sched) : NULL_REC;
    // A loop shows as a record met again; the check keeps one record in
    // view and moves it on at each power of two, so a loop is found within
    // twice its length and the index never grows far past the chain.
    std::uint32_t kept = NULL_REC;
    std::size_t power = 1;
    std::size_t since = 0;
    while (usable && rec != NULL_REC) {
        const auto pos = static_cast<std::uint32_t>(index->chain.size());
        if (rec == kept || pos >= static_cast<std::uint32_t>(ca->num_recs) || alm_read_sched(ca, rec, &ss) == -1 ||
            (pos > 0 && std::memcmp(index->chain.back().cpu, ss.ss_cpu_id, sizeof ss.ss_cpu_id) > 0)) {
            usable = false;
            break;
        }
        alm_sched_index::Entry e{rec, 0, 0, {}, {}};
        std::memcpy(e.cpu, ss.ss_cpu_id, sizeof e.cpu);
        std::memcpy(e.sched, ss.ss_sched_name, sizeof e.sched);
        e.cpu_len = static_cast<std::uint8_t>(prepare(ss.ss_cpu_id, w.cpu).len);
        e.sched_len = static_cast<std::uint8_t>(prepare(ss.ss_sched_name, w.sched).len);
        index->chain.push_back(e);
        index->position.emplace_back(rec, pos);
        if (++since == power) {
            kept = rec;
            power *= 2;
            since = 0;
        }
        rec = link(ss.ss_next_sch_ptr);
    }
    // Any record met twice makes the chain unusable too.
    std::sort(index->position.begin(), index->position.end());
    for (std::size_t i = 1; usable && i < index->position.size(); ++i)
        usable = index->position[i - 1].first != index->position[i].first;
    index->by_names.resize(index->chain.size());
    for (std::uint32_t i = 0; i < index->by_names.size(); ++i) index->by_names[i] = i;
    const auto& chain = index->chain;
    std::sort(index->by_names.begin(), index->by_names.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::tuple(chain[a].cpu_name(), chain[a].sched_name(), a) <
               std::tuple(chain[b].cpu_name(), chain[b].sched_name(), b);
    });
    index->usable = usable;
    return index;
}

// The session's index, made on first use within the scope by one walk of
// the whole chain; null outside a scope or when the chain is not one the
// index can stand for (a failed read, a loop, workstations out of order).
const alm_sched_index* sched_index(alm_comarea* ca, const NameWidths& w) {
    alm_read_ahead_state* ra = ca->read_ahead.get();
    if (ra == nullptr) return nullptr;
    if (!ra->sched_index) {
        // The reads that make the index leave the session's error as it was.
        const auto err_type = ca->err_type;
        const auto err_num = ca->err_num;
        const auto expected = ca->expected_type;
        const auto found = ca->found_type;
        const auto recnum = ca->last_recnum;
        try {
            ra->sched_index.reset(build_sched_index(ca, w).release());
        } catch (const std::bad_alloc&) {
        }
        ca->err_type = err_type;
        ca->err_num = err_num;
        ca->expected_type = expected;
        ca->found_type = found;
        ca->last_recnum = recnum;
    }
    return ra->sched_index && ra->sched_index->usable ? ra->sched_index.get() : nullptr;
}

// walk_scheds over the index: the same outcome, steps and buffer, reading
// only the record the walk ends on. Nothing when the index cannot tell.
std::optional<WalkEnd> walk_indexed(alm_comarea* ca, alm_walk& walk, const SchedQuery& q, std::uint32_t rec,
                                    SS_RECTYPE* ss, std::uint32_t* found, std::uint32_t* last) {
    if (rec == NULL_REC || (ca->match != nullptr && ca->match != c_patternmatch)) return std::nullopt;
    if (!is_plain(q.cpu) || !is_plain(q.sched)) return std::nullopt;
    const alm_sched_index* index = sched_index(ca, q.w);
    if (index == nullptr) return std::nullopt;
    const auto at_rec = std::lower_bound(index->position.begin(), index->position.end(),
                                         std::pair<std::uint32_t, std::uint32_t>(rec, 0));
    if (at_rec == index->position.end() || at_rec->first != rec) return std::nullopt;
    const std::size_t s = at_rec->second;
    const std::size_t n = index->chain.size();

    // With plain names a schedule matches exactly when its trimmed names
    // are the two names.
    std::size_t m = n;
    const std::string_view cpu_name(q.cpu.text, static_cast<std::size_t>(q.cpu.len));
    const std::string_view sched_name(q.sched.text, static_cast<std::size_t>(q.sched.len));
    const auto& chain = index->chain;
    const auto named = std::lower_bound(index->by_names.begin(), index->by_names.end(), s, [&](std::uint32_t p, std::size_t from) {
        return std::tuple(chain[p].cpu_name(), chain[p].sched_name(), static_cast<std::size_t>(p)) <
               std::tuple(cpu_name, sched_name, from);
    });
    if (named != index->by_names.end() && chain[*named].cpu_name() == cpu_name &&
        chain[*named].sched_name() == sched_name)
        m = *named;
    // The chain is in workstation order, so the schedules past the name
    // come after all the others.
    std::size_t t = n;
    if (!q.cpu_is_pattern) {
        const auto past = std::partition_point(index->chain.begin(), index->chain.end(), [&](const auto& e) {
            return std::memcmp(e.cpu, q.cpu.text, static_cast<std::size_t>(q.cpu.len)) <= 0;
        });
        t = std::max(s, static_cast<std::size_t>(past - index->chain.begin()));
    }

    WalkEnd end = WalkEnd::End;
    std::size_t at = n - 1;
    if (t < m && t < n) {
        end = WalkEnd::Stopped;
        at = t;
    } else if (m < n) {
        end = WalkEnd::Found;
        at = m;
    }
    const std::int64_t steps = static_cast<std::int64_t>(at - s) + 1;
    if (walk.steps + steps > ca->num_recs) return std::nullopt;  // the real walk may run out of steps
    walk.steps += steps;
    if (alm_read_sched(ca, index->chain[at].rec, ss) == -1) return WalkEnd::ReadFailed;
    if (end == WalkEnd::End)
        *last = index->chain[at].rec;
    else
        *last = at > s ? index->chain[at - 1].rec : NULL_REC;
    if (end == WalkEnd::Found) *found = index->chain[at].rec;
    return end;
}

// Walks the schedule chain from rec (inclusive) to the next schedule that
// matches; *found receives its number, *last the last record read.
WalkEnd walk_scheds(alm_comarea* ca, alm_walk& walk, const SchedQuery& q, std::uint32_t rec, SS_RECTYPE* ss,
                    std::uint32_t* found, std::uint32_t* last) {
    *last = NULL_REC;
    if (const std::optional<WalkEnd> end = walk_indexed(ca, walk, q, rec, ss, found, last)) return *end;
    while (rec != NULL_REC) {
        if (!walk.step(ca)) return WalkEnd::End;
        if (alm_read_sched(ca, rec, ss) == -1) return WalkEnd::ReadFailed;
        if (matches(ca, ss->ss_sched_name, q.w.sched, q.sched) && matches(ca, ss->ss_cpu_id, q.w.cpu, q.cpu)) {
            *found = rec;
            return WalkEnd::Found;
        }
        // The chain is ordered by workstation: past a plain name nothing
        // further can match.
        if (!q.cpu_is_pattern && q.cpu.len > 0 &&
            std::memcmp(ss->ss_cpu_id, q.cpu.text, static_cast<std::size_t>(q.cpu.len)) > 0)
            return WalkEnd::Stopped;
        *last = rec;
        rec = link(ss->ss_next_sch_ptr);
    }
    return WalkEnd::End;
}

std::uint32_t find_cpu(alm_comarea* ca, const char* cpu, std::uint32_t& start, SCI_RECTYPE* sci) {
    const NameWidths w = widths(ca);
    const Pattern p = prepare(cpu, w.cpu);
    if (start == 0) {
        if (!first_of_chain(ca, &SH_RECTYPE::sh_first_cpu, start)) return NULL_REC;
        if (start == NULL_REC) {
            not_found(ca, SCI_CODE);
            return NULL_REC;
        }
    }
    std::uint32_t rec = start;
    std::uint32_t last = NULL_REC;
    while (rec != NULL_REC) {
        if (!ca->cpu_walk.step(ca)) break;
        if (alm_read_cpu_info(ca, rec, sci) == -1) {
            start = NULL_REC;
            return NULL_REC;
        }
        if (matches(ca, sci->sci_cpu_id, w.cpu, p)) {
            start = link(sci->sci_next_cpu_ptr);
            return rec;
        }
        last = rec;
        rec = link(sci->sci_next_cpu_ptr);
    }
    start = NULL_REC;
    sci->sci_prev_cpu_ptr = last;
    sci->sci_rec_num = NULL_REC;
    return NULL_REC;
}

std::uint32_t find_sched(alm_comarea* ca, const char* cpu, const char* sched, std::uint32_t& start,
                         SS_RECTYPE* ss) {
    const NameWidths w = widths(ca);
    SchedQuery q{prepare(cpu, w.cpu), prepare(sched, w.sched), false, w};
    q.cpu_is_pattern = holds_wildcard(ca, q.cpu);
    if (start == 0) {
        if (!first_of_chain(ca, &SH_RECTYPE::sh_first_sched, start)) return NULL_REC;
        if (start == NULL_REC) {
            not_found(ca, SS_CODE);
            return NULL_REC;
        }
    }
    std::uint32_t found = NULL_REC;
    std::uint32_t last = NULL_REC;
    switch (walk_scheds(ca, ca->sched_walk, q, start, ss, &found, &last)) {
    case WalkEnd::Found:
        start = link(ss->ss_next_sch_ptr);
        return found;
    case WalkEnd::Stopped:
        return NULL_REC;
    case WalkEnd::ReadFailed:
        start = NULL_REC;
        return NULL_REC;
    case WalkEnd::End:
        break;
    }
    start = NULL_REC;
    ss->ss_prev_sch_ptr = last;
    ss->ss_rec_num = NULL_REC;
    return NULL_REC;
}

bool same_pattern(const char* kept, int kept_len, const Pattern& p) {
    return kept_len == p.len && (p.len == 0 || std::memcmp(kept, p.text, static_cast<std::size_t>(p.len)) == 0);
}

void keep_pattern(char* kept, int& kept_len, const Pattern& p) {
    kept_len = p.len;
    if (p.len > 0) std::memcpy(kept, p.text, static_cast<std::size_t>(p.len));
}

// Whether start continues the walk the last job lookup left behind.
bool continues(const alm_job_walk& walk, std::uint32_t start, const SchedQuery& q) {
    return walk.valid && start != 0 && start == walk.cursor_out && same_pattern(walk.cpu, walk.cpu_len, q.cpu) &&
           same_pattern(walk.sched, walk.sched_len, q.sched);
}

void remember(alm_job_walk& walk, const SchedQuery& q, std::uint32_t next_sched, bool in_chain) {
    static_assert(sizeof walk.cpu >= 16 && sizeof walk.sched >= 16);
    walk.valid = true;
    walk.in_chain = in_chain;
    walk.next_sched = next_sched;
    keep_pattern(walk.cpu, walk.cpu_len, q.cpu);
    keep_pattern(walk.sched, walk.sched_len, q.sched);
}

using JobRead = int (*)(alm_comarea*, std::uint32_t, SJ_RECTYPE*);

// Where a job walk stands besides its cursor: the next schedule to visit,
// and whether the cursor lies in the job chain of a qualifying schedule.
struct JobCursor {
    std::uint32_t next_sched;
    bool qualifies;
};

// Looks at the record under a cursor that does not continue the last walk:
// a schedule still to visit, or a job inside the chain of some schedule.
// False (start set to 32768) when a record cannot be read.
bool locate_cursor(alm_comarea* ca, const SchedQuery& q, std::uint32_t& start, JobCursor& at) {
    at = {start, false};
    ALMRECTYPE rec{};
    if (alm_read(ca, start, &rec) == -1) {
        start = NULL_REC;
        return false;
    }
    if (rec.alm_rec_type != SJ_CODE) return true;
    SS_RECTYPE ss{};
    if (alm_read_sched(ca, rec.sj.sj_sched_ptr, &ss) == -1) {
        not_found(ca, SS_CODE);
        start = NULL_REC;
        return false;
    }
    at.next_sched = link(ss.ss_next_sch_ptr);
    at.qualifies = matches(ca, ss.ss_sched_name, q.w.sched, q.sched) && matches(ca, ss.ss_cpu_id, q.w.cpu, q.cpu);
    return true;
}

enum class ChainEnd { Found, Exhausted, Failed };

// Where a walk over every matching job hands each one; null for a lookup
// that returns the first.
struct JobSink {
    alm_job_visit visit;
    void* context;
    std::int64_t count = 0;
    bool stopped = false;
};

// Reads the job chain from start to the next job whose name matches jp.
// Found: start is the cursor to hand out and the walk remembers where it
// stands. Failed: the lookup is over, start is 32768.
ChainEnd scan_jobs(alm_comarea* ca, alm_job_walk& walk, const SchedQuery& q, const Pattern& jp,
                   const JobCursor& at, std::uint32_t& start, SJ_RECTYPE* sj, JobRead read_job, JobSink* sink) {
    while (start != NULL_REC) {
        if (!walk.step(ca)) {
            not_found(ca, SJ_CODE);
            start = NULL_REC;
            return ChainEnd::Failed;
        }
        const std::uint32_t here = start;
        if (read_job(ca, here, sj) < 0) {
            start = NULL_REC;
            return ChainEnd::Failed;
        }
        start = link(sj->sj_next_job_ptr);
        if (matches(ca, sj->sj_job_name, q.w.job, jp)) {
            const bool in_chain = start != NULL_REC;
            if (!in_chain) start = at.next_sched;
            remember(walk, q, at.next_sched, in_chain);
            walk.found_at = here;
            if (sink == nullptr) return ChainEnd::Found;
            // A walk over every job goes on from here as the next lookup
            // with this cursor would.
            ++sink->count;
            sink->stopped = !sink->visit(sink->context, *sj, here);
            if (sink->stopped) return ChainEnd::Found;
            if (!in_chain) return ChainEnd::Exhausted;
        }
    }
    return ChainEnd::Exhausted;
}

std::uint32_t find_job(alm_comarea* ca, const char* cpu, const char* sched, const char* job, std::uint32_t& start,
                       SJ_RECTYPE* sj, JobRead read_job, JobSink* sink = nullptr) {
    const NameWidths w = widths(ca);
    SchedQuery q{prepare(cpu, w.cpu), prepare(sched, w.sched), false, w};
    q.cpu_is_pattern = holds_wildcard(ca, q.cpu);
    const Pattern jp = prepare(job, w.job);
    alm_job_walk& walk = ca->job_walk;
    const bool resumed = continues(walk, start, q);
    walk.valid = false;

    if (start == 0) {
        if (!first_of_chain(ca, &SH_RECTYPE::sh_first_sched, start)) return NULL_REC;
        if (start == NULL_REC) {
            not_found(ca, SS_CODE);
            return NULL_REC;
        }
    }
    if (start == NULL_REC) {
        not_found(ca, SJ_CODE);
        return NULL_REC;
    }

    // A continued walk knows where its cursor stands.
    JobCursor at{walk.next_sched, walk.in_chain};
    if (!resumed && !locate_cursor(ca, q, start, at)) return NULL_REC;
    for (;;) {
        if (at.qualifies) {
            const ChainEnd end = scan_jobs(ca, walk, q, jp, at, start, sj, read_job, sink);
            if (end == ChainEnd::Found) return sj->sj_rec_num;
            if (end == ChainEnd::Failed) return NULL_REC;
        }
        SS_RECTYPE ss{};
        std::uint32_t found = NULL_REC;
        std::uint32_t last = NULL_REC;
        const WalkEnd end = walk_scheds(ca, walk, q, at.next_sched, &ss, &found, &last);
        if (end != WalkEnd::ReadFailed && end != WalkEnd::Found) not_found(ca, SJ_CODE);
        if (end != WalkEnd::Found) {
            start = NULL_REC;
            return NULL_REC;
        }
        start = link(ss.ss_first_job);
        at = {link(ss.ss_next_sch_ptr), true};
    }
}

}  // namespace

bool alm_walk::step(alm_comarea* ca) {
    if (steps >= ca->num_recs) {
        if (ca->exclusive || alm_measure(ca) < 0 || steps >= ca->num_recs) return false;
    }
    ++steps;
    return true;
}

std::uint32_t alm_find_cpu(alm_comarea* alm_ca, const char* cpu, std::uint32_t& start, SCI_RECTYPE* sci_rec) {
    SCI_RECTYPE scratch{};
    if (sci_rec == nullptr) sci_rec = &scratch;
    sci_rec->sci_rec_num = NULL_REC;
    sci_rec->sci_prev_cpu_ptr = NULL_REC;
    sci_rec->sci_next_cpu_ptr = NULL_REC;
    if (!alm_valid(alm_ca)) return NULL_REC;
    begin_walk(alm_ca->cpu_walk, start);
    std::uint32_t rec = find_cpu(alm_ca, cpu, start, sci_rec);
    alm_ca->cpu_walk.cursor_out = start;
    return rec;
}

std::uint32_t alm_find_sched(alm_comarea* alm_ca, const char* cpu, const char* sched, std::uint32_t& start,
                             SS_RECTYPE* ss_rec) {
    SS_RECTYPE scratch{};
    if (ss_rec == nullptr) ss_rec = &scratch;
    ss_rec->ss_rec_num = NULL_REC;
    ss_rec->ss_prev_sch_ptr = NULL_REC;
    ss_rec->ss_next_sch_ptr = NULL_REC;
    if (!alm_valid(alm_ca)) return NULL_REC;
    begin_walk(alm_ca->sched_walk, start);
    std::uint32_t rec = find_sched(alm_ca, cpu, sched, start, ss_rec);
    alm_ca->sched_walk.cursor_out = start;
    return rec;
}

namespace {

std::uint32_t next_job(alm_comarea* alm_ca, const char* cpu, const char* sched, const char* job,
                       std::uint32_t& start, SJ_RECTYPE* sj_rec, JobRead read_job) {
    if (!alm_valid(alm_ca)) return NULL_REC;
    SJ_RECTYPE scratch{};
    if (sj_rec == nullptr) sj_rec = &scratch;
    begin_walk(alm_ca->job_walk, start);
    std::uint32_t rec = find_job(alm_ca, cpu, sched, job, start, sj_rec, read_job);
    alm_ca->job_walk.cursor_out = start;
    return rec;
}

}  // namespace

std::uint32_t alm_find_job(alm_comarea* alm_ca, const char* cpu, const char* sched, const char* job,
                           std::uint32_t& start, SJ_RECTYPE* sj_rec) {
    return next_job(alm_ca, cpu, sched, job, start, sj_rec, alm_read_job);
}

std::int64_t alm_each_job(alm_comarea* alm_ca, const char* cpu, const char* sched, const char* job,
                          alm_job_detail detail, alm_job_visit visit, void* context) {
    if (!alm_valid(alm_ca) || visit == nullptr) return 0;
    SJ_RECTYPE sj{};
    JobSink sink{visit, context};
    std::uint32_t start = 0;
    begin_walk(alm_ca->job_walk, start);
    const JobRead read = detail == alm_job_detail::dated ? alm_read_job : alm_read_job_links;
    find_job(alm_ca, cpu, sched, job, start, &sj, read, &sink);
    // Left as the lookup call that ended the walk would leave it.
    if (!sink.stopped) alm_ca->job_walk.valid = false;
    alm_ca->job_walk.cursor_out = start;
    return sink.count;
}

}  // namespace alm
