// The calendar record: a calendar and its days. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SC_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sc_filler1;
    std::int16_t sc_filler3;
    std::int16_t sc_rec_version;
    char sc_cal_name[8];
    std::int32_t sc_num_dates;
    std::uint32_t sc_cont_rec;
    std::uint32_t sc_cont_from;
    std::uint32_t sc_prev_cal;
    std::uint32_t sc_next_cal;
    std::int32_t sc_cal_dates[118];
    std::int16_t sc_filler2[2];
};

struct SC_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sc_cal_name[8];
    std::int16_t sc_num_dates;
    std::uint16_t sc_cont_rec;
    std::uint16_t sc_cont_from;
    std::uint16_t sc_prev_cal;
    std::uint16_t sc_next_cal;
    std::uint16_t sc_cal_dates[118];
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kCalendarFields[] = {
    ALM_ROW(SC, alm_rec_type, 0, 2, i16, 0, 2, i16),
    ALM_ROW2(SC, sc_filler1, 2, 2, i16),
    ALM_ROW2(SC, sc_filler3, 4, 2, i16),
    ALM_ROW2(SC, sc_rec_version, 6, 2, i16).widen_to(0),
    ALM_ROW(SC, sc_cal_name, 8, 8, text, 2, 8, text).show("calendar", 1),
    ALM_ROW(SC, sc_num_dates, 16, 4, i32, 10, 2, i16).show("dates", 2),
    ALM_ROW(SC, sc_cont_rec, 20, 4, u32, 12, 2, u16).link().show("cont", 5),
    ALM_ROW(SC, sc_cont_from, 24, 4, u32, 14, 2, u16).link().show("cont_from", 6),
    ALM_ROW(SC, sc_prev_cal, 28, 4, u32, 16, 2, u16).link().show("prev", 3),
    ALM_ROW(SC, sc_next_cal, 32, 4, u32, 18, 2, u16).link().show("next", 4),
    ALM_ROW(SC, sc_cal_dates, 36, 472, i32, 20, 236, u16),
    ALM_ROW2(SC, sc_filler2, 508, 4, i16),
};
static_assert(first_disagreeing_row(kCalendarFields, sizeof(SC_RECTYPE), sizeof(SC_RECTYPE_V1)) < 0);

}  // namespace alm
