// The prompt record: a prompt (message) that jobs wait for. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SM_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sm_status;
    std::int16_t sm_filler3;
    std::int16_t sm_rec_version;
    std::uint32_t sm_rec_num;
    std::uint32_t sm_cont_rec;
    char sm_cpu_id[16];
    char sm_msg_name[8];
    std::uint32_t sm_prev_msg;
    std::uint32_t sm_next_msg;
    std::uint32_t sm_job_ptr;
    std::int32_t sm_date_asked;
    std::int32_t sm_date_resp;
    std::int16_t sm_msg_no;
    std::int16_t sm_msg_flags;
    std::int16_t sm_time_asked;
    std::int16_t sm_time_resp;
    std::int16_t sm_filler1[5];
    char sm_message[80];
    char sm_message_more[120];
    std::int16_t sm_filler2[117];
};

struct SM_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sm_cpu_id[8];
    char sm_msg_name[8];
    std::int16_t sm_status;
    std::int16_t sm_msg_no;
    std::int16_t sm_msg_flags;
    std::uint16_t sm_prev_msg;
    std::uint16_t sm_next_msg;
    char sm_message[80];
    std::int32_t sm_date_asked;
    std::int32_t sm_date_resp;
    std::int16_t sm_time_asked;
    std::int16_t sm_time_resp;
    std::uint16_t sm_job_ptr;
    std::int16_t sm_filler1[5];
    std::uint16_t sm_rec_num;
    char sm_message_more[120];
    std::int16_t sm_filler2;
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kPromptFields[] = {
    ALM_ROW(SM, alm_rec_type, 0, 2, i16, 0, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SM, sm_status, 2, 2, i16, 18, 2, i16).sent(Wire::big_endian).show("status", 3),
    ALM_ROW2(SM, sm_filler3, 4, 2, i16).sent(Wire::as_delivered),
    ALM_ROW2(SM, sm_rec_version, 6, 2, i16).sent(Wire::as_delivered).widen_to(0),
    ALM_ROW(SM, sm_rec_num, 8, 4, u32, 132, 2, u16).sent(Wire::big_endian),
    ALM_ROW2(SM, sm_cont_rec, 12, 4, u32).sent(Wire::as_delivered).link(),
    ALM_ROW(SM, sm_cpu_id, 16, 16, text, 2, 8, text).sent(Wire::as_delivered).show("cpu", 2),
    ALM_ROW(SM, sm_msg_name, 32, 8, text, 10, 8, text).sent(Wire::as_delivered).show("prompt", 1),
    ALM_ROW(SM, sm_prev_msg, 40, 4, u32, 24, 2, u16).sent(Wire::low_half).link().show("prev", 5),
    ALM_ROW(SM, sm_next_msg, 44, 4, u32, 26, 2, u16).sent(Wire::low_half).link().show("next", 6),
    ALM_ROW(SM, sm_job_ptr, 48, 4, u32, 120, 2, u16).sent(Wire::low_half).link().show("job", 7),
    ALM_ROW(SM, sm_date_asked, 52, 4, i32, 108, 4, i32).sent(Wire::big_endian).date("sm_time_asked").show("asked", 8),
    ALM_ROW(SM, sm_date_resp, 56, 4, i32, 112, 4, i32).sent(Wire::big_endian).date("sm_time_resp").show("answered", 9),
    ALM_ROW(SM, sm_msg_no, 60, 2, i16, 20, 2, i16).sent(Wire::big_endian).show("msg_no", 4),
    ALM_ROW(SM, sm_msg_flags, 62, 2, i16, 22, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SM, sm_time_asked, 64, 2, i16, 116, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SM, sm_time_resp, 66, 2, i16, 118, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SM, sm_filler1, 68, 10, i16, 122, 10, i16).sent(Wire::as_delivered),
    ALM_ROW(SM, sm_message, 78, 80, text, 28, 80, text).sent(Wire::as_delivered).show("text", 10, Show::message),
    ALM_ROW(SM, sm_message_more, 158, 120, text, 134, 120, text).sent(Wire::as_delivered),
    ALM_ROW(SM, sm_filler2, 278, 234, i16, 254, 2, i16).sent(Wire::as_delivered),
};
static_assert(first_disagreeing_row(kPromptFields, sizeof(SM_RECTYPE), sizeof(SM_RECTYPE_V1)) < 0);

}  // namespace alm
