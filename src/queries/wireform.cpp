// Putting plan records into their wire form in place.
#include "queries/wireform.h"

#include <iterator>
#include <span>
#include <utility>

#include "util/endian.h"

namespace alm {

void to_big_endian16(unsigned char* p) { store_be16(p, load_host16(p)); }

void to_big_endian32(unsigned char* p) { store_be32(p, load_host32(p)); }

void to_low_half(unsigned char* p) {
    store_be16(p, static_cast<std::uint16_t>(load_host32(p) & 0xFFFFu));
    p[2] = 0;
    p[3] = 0;
}

namespace {

template <Wire form, int size>
void convert_one(unsigned char* p) {
    if constexpr (form == Wire::big_endian && size == 2) to_big_endian16(p);
    if constexpr (form == Wire::big_endian && size == 4) to_big_endian32(p);
    if constexpr (form == Wire::low_half) to_low_half(p);
    if constexpr (form == Wire::low_half_twice) {
        to_low_half(p);
        to_low_half(p);
    }
}

// Only top rows are converted: members and views are readings of bytes that
// their top row already sends. Dependency entries are converted apart, as
// they need the record's count.
constexpr Wire top_wire(const FieldSpec& f, ReplyForm reply) {
    return f.part == Part::top ? f.wire(reply) : Wire::none;
}

template <const auto& table, ReplyForm reply, std::size_t... row>
void convert_rows(unsigned char* rec, std::index_sequence<row...>) {
    (convert_one<top_wire(table[row], reply), table[row].v2.size>(rec + table[row].v2.off), ...);
}

// The table unrolled at compile time: the fields that are sent as
// delivered cost nothing, the others one load and one store.
template <const auto& table, ReplyForm reply>
void convert_table(unsigned char* rec) {
    convert_rows<table, reply>(rec, std::make_index_sequence<std::size(table)>{});
}

// Where a kind's dependency entries start.
constexpr std::size_t dep_entries_offset(std::span<const FieldSpec> table) {
    for (const FieldSpec& f : table)
        if (f.deps == Wire::dep_entries) return f.v2.off;
    return 0;
}
constexpr std::size_t kScheduleEntries = dep_entries_offset(kScheduleFields);
constexpr std::size_t kJobEntries = dep_entries_offset(kJobFields);
static_assert(kScheduleEntries == offsetof(SS_RECTYPE, ss_dependencies));
static_assert(kJobEntries == offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies));

}  // namespace

void convert_dependency_entries(unsigned char* entries, int count) {
    for (int i = 0; i < count; ++i) to_low_half(entries + 4 * i);
}

void ConvertCpuReply(unsigned char* rec) { convert_table<kWorkstationFields, ReplyForm::query>(rec); }

void ConvertScheduleReply(unsigned char* rec) { convert_table<kScheduleFields, ReplyForm::query>(rec); }

void ConvertJobReply(unsigned char* rec) { convert_table<kJobFields, ReplyForm::query>(rec); }

SS_RECTYPE* ConvertSchedule(SS_RECTYPE* ss) {
    const int depends = dependency_count(ss->ss_num_depends);
    unsigned char* rec = record_bytes(ss);
    convert_dependency_entries(rec + kScheduleEntries, depends);
    convert_table<kScheduleFields, ReplyForm::deps>(rec);
    return ss;
}

SS_RECTYPE* ConvertScheduleDep(SS_RECTYPE* ss) { return ConvertSchedule(ss); }

SJ_RECTYPE* ConvertJob(SJ_RECTYPE* sj) {
    const int depends = dependency_count(sj->sj_num_depends);
    unsigned char* rec = record_bytes(sj);
    convert_dependency_entries(rec + kJobEntries, depends);
    convert_table<kJobFields, ReplyForm::deps>(rec);
    return sj;
}

SJ_RECTYPE* ConvertJobDep(SJ_RECTYPE* sj) { return ConvertJob(sj); }

SM_RECTYPE* ConvertPrompt(SM_RECTYPE* sm) {
    convert_table<kPromptFields, ReplyForm::deps>(record_bytes(sm));
    return sm;
}

SF_RECTYPE* ConvertFile(SF_RECTYPE* sf) {
    convert_table<kFileFields, ReplyForm::deps>(record_bytes(sf));
    return sf;
}

SR_RECTYPE* ConvertResource(SR_RECTYPE* sr) {
    convert_table<kResourceFields, ReplyForm::deps>(record_bytes(sr));
    return sr;
}

}  // namespace alm
