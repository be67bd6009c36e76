// Putting plan records into their wire form in place.
#include "queries/wireform.h"

#include <iterator>
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

void convert_fields(unsigned char* rec, std::span<const WireField> table) {
    for (const WireField& f : table) {
        unsigned char* p = rec + f.offset;
        switch (f.form) {
            case Wire::big_endian16: to_big_endian16(p); break;
            case Wire::big_endian32: to_big_endian32(p); break;
            case Wire::low_half: to_low_half(p); break;
            case Wire::as_delivered:
            case Wire::text: break;
        }
    }
}

namespace {

template <Wire form>
void convert_one(unsigned char* p) {
    if constexpr (form == Wire::big_endian16) to_big_endian16(p);
    if constexpr (form == Wire::big_endian32) to_big_endian32(p);
    if constexpr (form == Wire::low_half) to_low_half(p);
}

template <const auto& table, std::size_t... row>
void convert_rows(unsigned char* rec, std::index_sequence<row...>) {
    (convert_one<table[row].form>(rec + table[row].offset), ...);
}

// convert_fields with the table unrolled at compile time: the fields that
// are sent as delivered cost nothing, the others one load and one store.
template <const auto& table>
void convert_table(unsigned char* rec) {
    convert_rows<table>(rec, std::make_index_sequence<std::size(table)>{});
}

}  // namespace

void convert_dependency_entries(unsigned char* entries, int count) {
    for (int i = 0; i < count; ++i) to_low_half(entries + 4 * i);
}

void ConvertCpuReply(unsigned char* rec) { convert_table<kCpuWire>(rec); }

void ConvertScheduleReply(unsigned char* rec) { convert_table<kScheduleWire>(rec); }

void ConvertJobReply(unsigned char* rec) { convert_table<kJobWire>(rec); }

SS_RECTYPE* ConvertSchedule(SS_RECTYPE* ss) {
    const int depends = dependency_count(ss->ss_num_depends);
    unsigned char* rec = record_bytes(ss);
    convert_dependency_entries(rec + offsetof(SS_RECTYPE, ss_dependencies), depends);
    convert_table<kScheduleWire>(rec);
    return ss;
}

SS_RECTYPE* ConvertScheduleDep(SS_RECTYPE* ss) { return ConvertSchedule(ss); }

SJ_RECTYPE* ConvertJob(SJ_RECTYPE* sj) {
    const int depends = dependency_count(sj->sj_num_depends);
    unsigned char* rec = record_bytes(sj);
    convert_dependency_entries(rec + offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies), depends);
    convert_table<kJobWire>(rec);
    convert_table<kJobDepWireChanges>(rec);
    return sj;
}

SJ_RECTYPE* ConvertJobDep(SJ_RECTYPE* sj) { return ConvertJob(sj); }

SM_RECTYPE* ConvertPrompt(SM_RECTYPE* sm) {
    convert_table<kPromptWire>(record_bytes(sm));
    return sm;
}

SF_RECTYPE* ConvertFile(SF_RECTYPE* sf) {
    convert_table<kFileWire>(record_bytes(sf));
    return sf;
}

SR_RECTYPE* ConvertResource(SR_RECTYPE* sr) {
    convert_table<kResourceWire>(record_bytes(sr));
    return sr;
}

}  // namespace alm
