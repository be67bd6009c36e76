#include "queries/wireform.h"

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

void convert_dependency_entries(unsigned char* entries, int count) {
    for (int i = 0; i < count; ++i) to_low_half(entries + 4 * i);
}

void ConvertCpuReply(unsigned char* rec) { convert_fields(rec, kCpuWire); }

void ConvertScheduleReply(unsigned char* rec) { convert_fields(rec, kScheduleWire); }

void ConvertJobReply(unsigned char* rec) { convert_fields(rec, kJobWire); }

SS_RECTYPE* ConvertSchedule(SS_RECTYPE* ss) {
    const int depends = dependency_count(ss->ss_num_depends);
    unsigned char* rec = record_bytes(ss);
    convert_dependency_entries(rec + offsetof(SS_RECTYPE, ss_dependencies), depends);
    convert_fields(rec, kScheduleWire);
    return ss;
}

SS_RECTYPE* ConvertScheduleDep(SS_RECTYPE* ss) { return ConvertSchedule(ss); }

SJ_RECTYPE* ConvertJob(SJ_RECTYPE* sj) {
    const int depends = dependency_count(sj->sj_num_depends);
    unsigned char* rec = record_bytes(sj);
    convert_dependency_entries(rec + offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies), depends);
    convert_fields(rec, kJobWire);
    convert_fields(rec, kJobDepWireChanges);
    return sj;
}

SJ_RECTYPE* ConvertJobDep(SJ_RECTYPE* sj) { return ConvertJob(sj); }

SM_RECTYPE* ConvertPrompt(SM_RECTYPE* sm) {
    convert_fields(record_bytes(sm), kPromptWire);
    return sm;
}

SF_RECTYPE* ConvertFile(SF_RECTYPE* sf) {
    convert_fields(record_bytes(sf), kFileWire);
    return sf;
}

SR_RECTYPE* ConvertResource(SR_RECTYPE* sr) {
    convert_fields(record_bytes(sr), kResourceWire);
    return sr;
}

}  // namespace alm
