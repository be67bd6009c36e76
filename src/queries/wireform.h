// Wire form of plan records in query replies. How each field is sent is a
// column of its record kind's table of fields (plan/record_*.h), one per
// reply; the routines here walk those tables over a record's bytes and
// convert it in place.
#pragma once

#include <cstddef>
#include <cstdint>

#include "plan/almrecs.h"

namespace alm {

// The quirks, one helper each. p points at the field's first byte.
void to_big_endian16(unsigned char* p);
void to_big_endian32(unsigned char* p);
void to_low_half(unsigned char* p);

// A dependency count as the walk and the conversion use it: 0..MAX_DEPENDS.
constexpr int dependency_count(std::int16_t stored) {
    return stored < 0 ? 0 : (stored > MAX_DEPENDS ? MAX_DEPENDS : stored);
}

// Puts the first count 32-bit record numbers at entries into low half form.
void convert_dependency_entries(unsigned char* entries, int count);

inline unsigned char* record_bytes(void* rec) { return static_cast<unsigned char*>(rec); }

// Query replies: the record, as the plan library delivered it, put into wire
// form in place.
void ConvertCpuReply(unsigned char* rec);
void ConvertScheduleReply(unsigned char* rec);
void ConvertJobReply(unsigned char* rec);

// Dependency listing. Each converts its record in place and returns it; a
// record must be converted once only, so callers copy what they still need
// (dependency counts, flags, record numbers, chain pointers) beforehand.
SS_RECTYPE* ConvertSchedule(SS_RECTYPE* ss);
SS_RECTYPE* ConvertScheduleDep(SS_RECTYPE* ss);
SJ_RECTYPE* ConvertJob(SJ_RECTYPE* sj);
SJ_RECTYPE* ConvertJobDep(SJ_RECTYPE* sj);
SM_RECTYPE* ConvertPrompt(SM_RECTYPE* sm);
SF_RECTYPE* ConvertFile(SF_RECTYPE* sf);
SR_RECTYPE* ConvertResource(SR_RECTYPE* sr);

}  // namespace alm
