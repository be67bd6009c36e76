// Lookups over the plan's chains: the next workstation, schedule or job whose
// names match patterns (see util/patmatch.h), one call at a time.
//
// start is the cursor: 0 starts at the head of the chain, 32768 means
// finished, anything else is where the next call resumes. Each call returns
// the matching record's number (and the record in the buffer) or 32768.
//
// Damaged plans: a link to record 0 (the header) counts as the end of its
// chain, and a walk takes at most as many steps as the file has records, so
// a looping chain ends as if it had reached its end. The step count belongs
// to the session, one per kind of lookup; it restarts when the lookup gets
// cursor 0 or a cursor other than the one it handed out last, so a walk
// resumed call by call is bounded as a whole, and every single call is
// bounded in any case.
//
// A job lookup called again with the cursor it handed out, and the same
// workstation and schedule patterns, goes on from where it stood instead of
// reading the job at the cursor and its schedule again: one read per record
// it moves over. Any other cursor is looked at afresh.
#pragma once

#include <cstdint>

#include "plan/almaccs.h"
#include "plan/almrecs.h"

namespace alm {

// Next workstation whose sci_cpu_id matches cpu. Empty chain: error 36 with
// expected "IC". At the chain's end the buffer's sci_prev_cpu_ptr holds the
// last record read and sci_rec_num 32768.
std::uint32_t alm_find_cpu(alm_comarea* alm_ca, const char* cpu, std::uint32_t& start, SCI_RECTYPE* sci_rec);

// Next schedule whose ss_sched_name matches sched and ss_cpu_id matches cpu.
// Empty chain: error 36 with expected "RS". When cpu holds none of "@?%" the
// walk stops at the first schedule of a greater workstation, leaving start
// and the buffer as they are.
std::uint32_t alm_find_sched(alm_comarea* alm_ca, const char* cpu, const char* sched, std::uint32_t& start,
                             SS_RECTYPE* ss_rec);

// Next job whose sj_job_name matches job in a schedule matching cpu and
// sched; returns the job's sj_rec_num. Nothing further: error 36 with
// expected "RJ" (or "RS" for an empty schedule chain).
std::uint32_t alm_find_job(alm_comarea* alm_ca, const char* cpu, const char* sched, const char* job,
                           std::uint32_t& start, SJ_RECTYPE* sj_rec);

// Every job that alm_find_job returns call after call from cursor 0, in the
// same order and within the same bounds, without a call per job: visit gets
// each job, read with the given detail (alm_find_job reads it dated), and the
// record it was read from; returning false ends the walk. Returns the number
// of jobs visited.
using alm_job_visit = bool (*)(void* context, const SJ_RECTYPE& sj, std::uint32_t at);
std::int64_t alm_each_job(alm_comarea* alm_ca, const char* cpu, const char* sched, const char* job,
                          alm_job_detail detail, alm_job_visit visit, void* context);

}  // namespace alm
