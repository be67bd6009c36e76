// Record layouts of the plan file (the Almanack): the 512-byte V2 records,
// which are also the in-memory form handed to callers, and the 256-byte V1
// records of older files. Each kind has a header of its own holding both
// layouts and its table of fields; this one gathers them into the unions
// that any record is read into.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "plan/record_basics.h"
#include "plan/record_header.h"
#include "plan/record_workstation.h"
#include "plan/record_schedule.h"
#include "plan/record_job.h"
#include "plan/record_prompt.h"
#include "plan/record_file.h"
#include "plan/record_resource.h"
#include "plan/record_calendar.h"
#include "plan/record_string.h"
#include "plan/record_dependency.h"
#include "plan/record_purgeable.h"

namespace alm {

// Any V2 record, as callers receive it.
union ALMRECTYPE {
    std::int16_t alm_rec_type;
    SH_RECTYPE sh;
    SCI_RECTYPE sci;
    SS_RECTYPE ss;
    SJ_RECTYPE sj;
    SM_RECTYPE sm;
    SF_RECTYPE sf;
    SR_RECTYPE sr;
    SC_RECTYPE sc;
    ST_RECTYPE st;
    SD_RECTYPE sd;
    PJ_RECTYPE pj;
    unsigned char bytes[ALM_REC_SIZE_V2];
};
static_assert(sizeof(ALMRECTYPE) == 512);

// Any record as stored in the file, of either version.
union ALMRECTYPE_INT {
    std::int16_t alm_rec_type;
    ALMRECTYPE v2;
    SH_RECTYPE_V1 sh;
    SCI_RECTYPE_V1 sci;
    SS_RECTYPE_V1 ss;
    SJ_RECTYPE_V1 sj;
    SM_RECTYPE_V1 sm;
    SF_RECTYPE_V1 sf;
    SR_RECTYPE_V1 sr;
    SC_RECTYPE_V1 sc;
    ST_RECTYPE_V1 st;
    SD_RECTYPE_V1 sd;
    PJ_RECTYPE_V1 pj;
    unsigned char bytes[ALM_REC_SIZE_V2];
};
static_assert(sizeof(ALMRECTYPE_INT) == 512);

// The table of fields of the kind a type code names; empty for unknown codes.
constexpr std::span<const FieldSpec> fields_of_record(std::int16_t code) {
    switch (code) {
        case SH_CODE: return kHeaderFields;
        case SCI_CODE: return kWorkstationFields;
        case SS_CODE: return kScheduleFields;
        case SJ_CODE: return kJobFields;
        case SM_CODE: return kPromptFields;
        case SF_CODE: return kFileFields;
        case SR_CODE: return kResourceFields;
        case SC_CODE: return kCalendarFields;
        case ST_CODE: return kStringFields;
        case SD_CODE: return kDependencyFields;
        case PJ_CODE: return kPurgeableFields;
        default: break;
    }
    return {};
}

// Record size for a header's sh_alm_version.
constexpr int alm_rec_size(std::int16_t alm_version) {
    return alm_version != 0 ? ALM_REC_SIZE_V2 : ALM_REC_SIZE_V1;
}

}  // namespace alm
