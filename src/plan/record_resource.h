// The resource record: a resource, its counts and holders. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SR_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sr_status;
    std::int16_t sr_filler4;
    std::int16_t sr_rec_version;
    std::uint32_t sr_rec_num;
    std::uint32_t sr_cont_rec;
    char sr_cpu_id[16];
    char sr_resource_name[8];
    std::uint32_t sr_prev_resource;
    std::uint32_t sr_next_resource;
    std::int32_t sr_num_avail;
    std::int32_t sr_num_used;
    std::int32_t sr_num_unused;
    std::int32_t sr_num_holders;
    std::int16_t sr_filler1[16];
    std::uint32_t sr_holders[32];
    std::int16_t sr_filler2[2];
    std::int16_t sr_hold_counts[32];
    std::int16_t sr_filler3[110];
};

struct SR_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sr_cpu_id[8];
    char sr_resource_name[8];
    std::int16_t sr_status;
    std::uint16_t sr_prev_resource;
    std::uint16_t sr_next_resource;
    std::int16_t sr_num_avail;
    std::int16_t sr_num_used;
    std::int16_t sr_num_unused;
    std::int16_t sr_num_holders;
    std::int16_t sr_filler1[16];
    std::uint16_t sr_holders[32];
    std::int16_t sr_filler2[2];
    std::uint16_t sr_rec_num;
    std::int16_t sr_hold_counts[32];
    std::int16_t sr_filler3[29];
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kResourceFields[] = {
    ALM_ROW(SR, alm_rec_type, 0, 2, i16, 0, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SR, sr_status, 2, 2, i16, 18, 2, i16).sent(Wire::big_endian).show("status", 3),
    ALM_ROW2(SR, sr_filler4, 4, 2, i16).sent(Wire::as_delivered),
    ALM_ROW2(SR, sr_rec_version, 6, 2, i16).sent(Wire::as_delivered).widen_to(0),
    ALM_ROW(SR, sr_rec_num, 8, 4, u32, 132, 2, u16).sent(Wire::big_endian),
    ALM_ROW2(SR, sr_cont_rec, 12, 4, u32).sent(Wire::as_delivered).link(),
    ALM_ROW(SR, sr_cpu_id, 16, 16, text, 2, 8, text).sent(Wire::as_delivered).show("cpu", 1),
    ALM_ROW(SR, sr_resource_name, 32, 8, text, 10, 8, text).sent(Wire::as_delivered).show("resource", 2),
    ALM_ROW(SR, sr_prev_resource, 40, 4, u32, 20, 2, u16).sent(Wire::low_half).link().show("prev", 4),
    ALM_ROW(SR, sr_next_resource, 44, 4, u32, 22, 2, u16).sent(Wire::low_half).link().show("next", 5),
    ALM_ROW(SR, sr_num_avail, 48, 4, i32, 24, 2, i16).sent(Wire::low_half).show("avail", 6),
    ALM_ROW(SR, sr_num_used, 52, 4, i32, 26, 2, i16).sent(Wire::low_half).show("used", 7),
    ALM_ROW(SR, sr_num_unused, 56, 4, i32, 28, 2, i16).sent(Wire::low_half),
    ALM_ROW(SR, sr_num_holders, 60, 4, i32, 30, 2, i16).sent(Wire::low_half).show("holders", 8),
    ALM_ROW(SR, sr_filler1, 64, 32, i16, 32, 32, i16).sent(Wire::as_delivered),
    ALM_ROW(SR, sr_holders, 96, 128, u32, 64, 64, u16).sent(Wire::as_delivered),
    ALM_ROW(SR, sr_filler2, 224, 4, i16, 128, 4, i16).sent(Wire::as_delivered),
    ALM_ROW(SR, sr_hold_counts, 228, 64, i16, 134, 64, i16).sent(Wire::as_delivered),
    ALM_ROW(SR, sr_filler3, 292, 220, i16, 198, 58, i16).sent(Wire::as_delivered),
};
static_assert(first_disagreeing_row(kResourceFields, sizeof(SR_RECTYPE), sizeof(SR_RECTYPE_V1)) < 0);

}  // namespace alm
