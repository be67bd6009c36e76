// The purgeable jobs record: the jobs that may be purged. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct PJ_RECTYPE {
    std::int16_t pj_alm_rec_type;
    std::int16_t pj_job_count;
    char pj_job_list[15][4][8];
    std::int16_t pj_filler1[14];
};

struct PJ_RECTYPE_V1 {
    std::int16_t pj_alm_rec_type;
    std::int16_t pj_job_count;
    char pj_job_list[7][4][8];
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kPurgeableFields[] = {
    ALM_ROW(PJ, pj_alm_rec_type, 0, 2, i16, 0, 2, i16),
    ALM_ROW(PJ, pj_job_count, 2, 2, i16, 2, 2, i16).show("jobs", 1),
    ALM_ROW(PJ, pj_job_list, 4, 480, text, 4, 224, text),
    ALM_ROW2(PJ, pj_filler1, 484, 28, i16),
};
static_assert(first_disagreeing_row(kPurgeableFields, sizeof(PJ_RECTYPE), sizeof(PJ_RECTYPE_V1)) < 0);

}  // namespace alm
