// The dependency record: a dependency named in the plan. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SD_RECTYPE {
    std::int16_t sd_rec_type;
    std::int16_t sd_filler2;
    std::int16_t sd_rec_version;
    char sd_cpu_id[16];
    char sd_sched_name[16];
    char sd_job_name[40];
    std::int16_t sd_dep_type;
    char sd_dep_cpu[16];
    char sd_dep_name[16];
    char sd_dep_jname[40];
    SD_DEP sd_dep;
    std::int16_t sd_filler1[78];
};

struct SD_RECTYPE_V1 {
    std::int16_t sd_rec_type;
    char sd_cpu_id[8];
    char sd_sched_name[8];
    char sd_job_name[8];
    std::int16_t sd_dep_type;
    char sd_dep_cpu[8];
    char sd_dep_name[8];
    char sd_dep_jname[8];
    SD_DEP sd_dep;
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kDependencyFields[] = {
    ALM_ROW(SD, sd_rec_type, 0, 2, i16, 0, 2, i16),
    ALM_ROW2(SD, sd_filler2, 2, 2, i16),
    ALM_ROW2(SD, sd_rec_version, 4, 2, i16).widen_to(0),
    ALM_ROW(SD, sd_cpu_id, 6, 16, text, 2, 8, text).show("cpu", 1),
    ALM_ROW(SD, sd_sched_name, 22, 16, text, 10, 8, text).show("sched", 2),
    ALM_ROW(SD, sd_job_name, 38, 40, text, 18, 8, text).show("job", 3),
    ALM_ROW(SD, sd_dep_type, 78, 2, i16, 26, 2, i16).show("dep_type", 4),
    ALM_ROW(SD, sd_dep_cpu, 80, 16, text, 28, 8, text).show("dep_cpu", 5),
    ALM_ROW(SD, sd_dep_name, 96, 16, text, 36, 8, text).show("dep_name", 6),
    ALM_ROW(SD, sd_dep_jname, 112, 40, text, 44, 8, text).show("dep_job", 7),
    ALM_ROW(SD, sd_dep, 152, 204, bytes, 52, 204, bytes),
    ALM_ROW2(SD, sd_filler1, 356, 156, i16),
};
static_assert(first_disagreeing_row(kDependencyFields, sizeof(SD_RECTYPE), sizeof(SD_RECTYPE_V1)) < 0);

}  // namespace alm
