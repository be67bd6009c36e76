// The string record: a string record: long texts such as job scripts. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct ST_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t st_filler1;
    std::int16_t st_filler2;
    std::int16_t st_rec_version;
    std::uint32_t st_rec_num;
    std::uint32_t st_next_ptr;
    std::uint32_t st_First_Free;
    ST_STR_SPACE st_str_space;
};

struct ST_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    std::uint16_t st_next_ptr;
    std::uint16_t st_First_Free;
    ST_STR_SPACE_V1 st_str_space;
};

//   field                  V2: offset size type     V1: offset size type
// The V1 string space keeps the record's own number at its offset 126, so
// st_rec_num lies inside st_str_space there.
inline constexpr FieldSpec kStringFields[] = {
    ALM_ROW(ST, alm_rec_type, 0, 2, i16, 0, 2, i16),
    ALM_ROW2(ST, st_filler1, 2, 2, i16),
    ALM_ROW2(ST, st_filler2, 4, 2, i16),
    ALM_ROW2(ST, st_rec_version, 6, 2, i16).widen_to(0),
    ALM_ROW_AS(ST, "st_rec_num", st_rec_num, 8, 4, u32, st_str_space.subrec.st_rec_num, 132, 2, u16).show("rec_num", 1),
    ALM_ROW(ST, st_next_ptr, 12, 4, u32, 2, 2, u16).link().show("next", 2),
    ALM_ROW(ST, st_First_Free, 16, 4, u32, 4, 2, u16).show("first_free", 3),
    ALM_ROW(ST, st_str_space, 20, 492, bytes, 6, 250, bytes),
    ALM_ROW_AS(ST, "st_strings", st_str_space.st_strings, 20, 492, text, st_str_space.st_strings, 6, 250, text).member(),
    ALM_ROW2_AS(ST, "st_subrec_identifier", st_str_space.subrec.st_subrec_identifier, 20, 4, text).view(),
    ALM_ROW2_AS(ST, "prev_ptr", st_str_space.subrec.prev_ptr, 24, 4, u32).view(),
    ALM_ROW2_AS(ST, "buffer1", st_str_space.subrec.buffer1, 28, 120, text).view(),
    ALM_ROW2_AS(ST, "buffer2", st_str_space.subrec.buffer2, 148, 360, text).view(),
    ALM_ROW2_AS(ST, "next_ptr", st_str_space.subrec.next_ptr, 508, 4, u32).view(),
};
static_assert(first_disagreeing_row(kStringFields, sizeof(ST_RECTYPE), sizeof(ST_RECTYPE_V1)) < 0);

}  // namespace alm
