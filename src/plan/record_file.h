// The file record: a file that jobs wait for. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SF_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sf_status;
    std::int16_t sf_filler6;
    std::int16_t sf_rec_version;
    std::uint32_t sf_rec_num;
    std::uint32_t sf_cont_rec;
    char sf_cpu_id[16];
    std::uint32_t sf_prev_file;
    std::uint32_t sf_next_file;
    char sf_filler1[8];
    char sf_file_name[28];
    char sf_filler2[48];
    std::int16_t sf_filler3[6];
    SF_TIMERTYPE sf_timer;
    std::int16_t sf_filler4[8];
    std::int16_t sf_feq_len;
    char sf_feq[120];
    std::int16_t sf_filler5[117];
};

struct SF_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sf_cpu_id[8];
    char sf_filler1[8];
    std::int16_t sf_status;
    char sf_file_name[28];
    char sf_filler2[48];
    std::uint16_t sf_prev_file;
    std::uint16_t sf_next_file;
    std::int16_t sf_filler3[6];
    SF_TIMERTYPE sf_timer;
    std::int16_t sf_filler4[8];
    std::uint16_t sf_rec_num;
    std::int16_t sf_feq_len;
    char sf_feq[120];
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kFileFields[] = {
    ALM_ROW(SF, alm_rec_type, 0, 2, i16, 0, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SF, sf_status, 2, 2, i16, 18, 2, i16).sent(Wire::big_endian).show("status", 3),
    ALM_ROW2(SF, sf_filler6, 4, 2, i16).sent(Wire::as_delivered),
    ALM_ROW2(SF, sf_rec_version, 6, 2, i16).sent(Wire::as_delivered).widen_to(0),
    ALM_ROW(SF, sf_rec_num, 8, 4, u32, 132, 2, u16).sent(Wire::big_endian),
    ALM_ROW2(SF, sf_cont_rec, 12, 4, u32).sent(Wire::as_delivered).link(),
    ALM_ROW(SF, sf_cpu_id, 16, 16, text, 2, 8, text).sent(Wire::as_delivered).show("cpu", 1),
    ALM_ROW(SF, sf_prev_file, 32, 4, u32, 96, 2, u16).sent(Wire::low_half).link().show("prev", 4),
    ALM_ROW(SF, sf_next_file, 36, 4, u32, 98, 2, u16).sent(Wire::low_half).link().show("next", 5),
    ALM_ROW(SF, sf_filler1, 40, 8, text, 10, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SF, sf_file_name, 48, 28, text, 20, 28, text).sent(Wire::as_delivered).show("file", 2),
    ALM_ROW(SF, sf_filler2, 76, 48, text, 48, 48, text).sent(Wire::as_delivered),
    ALM_ROW(SF, sf_filler3, 124, 12, i16, 100, 12, i16).sent(Wire::as_delivered),
    ALM_ROW_AS(SF, "sf_timer", sf_timer.sf_lasttime, 136, 4, i32, sf_timer.sf_lasttime, 112, 4, i32).sent(Wire::as_delivered),
    ALM_ROW_AS(SF, "sf_lasttime", sf_timer.sf_lasttime, 136, 4, i32, sf_timer.sf_lasttime, 112, 4, i32).sent(Wire::as_delivered).view(),
    ALM_ROW_AS(SF, "timer1", sf_timer.timers.timer1, 136, 2, i16, sf_timer.timers.timer1, 112, 2, i16).sent(Wire::as_delivered).view(),
    ALM_ROW_AS(SF, "timer2", sf_timer.timers.timer2, 138, 2, i16, sf_timer.timers.timer2, 114, 2, i16).sent(Wire::as_delivered).view(),
    ALM_ROW(SF, sf_filler4, 140, 16, i16, 116, 16, i16).sent(Wire::as_delivered),
    ALM_ROW(SF, sf_feq_len, 156, 2, i16, 134, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SF, sf_feq, 158, 120, text, 136, 120, text).sent(Wire::as_delivered).show("qualifier", 6, Show::qualifier),
    ALM_ROW2(SF, sf_filler5, 278, 234, i16).sent(Wire::as_delivered),
};
static_assert(first_disagreeing_row(kFileFields, sizeof(SF_RECTYPE), sizeof(SF_RECTYPE_V1)) < 0);

}  // namespace alm
