// Conversion of records between the file's form (V1 or V2) and the form callers see.
#include "plan/almforms.h"

#include <cstddef>
#include <cstring>
#include <span>

#include "plan/almforms_v1.h"
#include "plan/unknownrecord.h"
#include "util/dateutil.h"
#include "util/endian.h"

namespace alm {

namespace {

constexpr std::int16_t kV1 = 0;
constexpr std::int16_t kV2 = 1;

constexpr int kMsgUnknownOnWrite = 40;
constexpr int kMsgUnknownOnRead = 41;
constexpr int kLineUnknownOnWrite = 1132;
constexpr int kLineUnknownOnRead = 2064;

// A V2 date field with the time of day it was stored with (-1: midnight).
struct DateField {
    std::uint16_t date_off;
    int time_off;
};

#define ALM_DATE(T, date, time) DateField{offsetof(T, date), offsetof(T, time)}
#define ALM_DATE_MIDNIGHT(T, date) DateField{offsetof(T, date), -1}

constexpr DateField kHdrDates[] = {
    ALM_DATE_MIDNIGHT(SH_RECTYPE, sh_last_date),
    ALM_DATE_MIDNIGHT(SH_RECTYPE, sh_sched_date),
    ALM_DATE(SH_RECTYPE, sh_date_started, sh_time_started),
};
constexpr DateField kCpuDates[] = {
    ALM_DATE(SCI_RECTYPE, sci_date_started, sci_time_started),
};
constexpr DateField kSchedDates[] = {
    ALM_DATE_MIDNIGHT(SS_RECTYPE, ss_prod_date),
    ALM_DATE(SS_RECTYPE, ss_until_date, ss_until_time),
    ALM_DATE(SS_RECTYPE, ss_sched_date, ss_start_time),
    ALM_DATE(SS_RECTYPE, ss_date_started, ss_time_started),
};
constexpr DateField kJobDates[] = {
    ALM_DATE(SJ_RECTYPE, sj_until_date, sj_until_time),
    ALM_DATE(SJ_RECTYPE, sj_sched_date, sj_start_time),
    ALM_DATE(SJ_RECTYPE, sj_date_started, sj_time_started),
};
constexpr DateField kMsgDates[] = {
    ALM_DATE(SM_RECTYPE, sm_date_asked, sm_time_asked),
    ALM_DATE(SM_RECTYPE, sm_date_resp, sm_time_resp),
};

#undef ALM_DATE
#undef ALM_DATE_MIDNIGHT

std::int16_t time_of(const unsigned char* rec, int time_off) {
    return time_off < 0 ? std::int16_t{0} : static_cast<std::int16_t>(load_le16(rec + time_off));
}

void dates_to_gmt(unsigned char* rec, std::span<const DateField> dates) {
    for (const auto& d : dates) {
        const auto local = static_cast<std::int32_t>(load_le32(rec + d.date_off));
        store_le32(rec + d.date_off, static_cast<std::uint32_t>(local_to_GMTEpoch(local, time_of(rec, d.time_off))));
    }
}

void dates_to_local(unsigned char* rec, std::span<const DateField> dates) {
    for (const auto& d : dates) {
        const auto gmt = static_cast<std::int32_t>(load_le32(rec + d.date_off));
        store_le32(rec + d.date_off, static_cast<std::uint32_t>(GMT_to_localEpoch(gmt, time_of(rec, d.time_off))));
    }
}

// Both buffers are whole 512-byte unions, so they either coincide or are
// apart; a coinciding source is first copied aside.
void read_record(V1Kind kind, std::span<const DateField> dates, const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff,
                 std::int16_t alm_version) {
    if (int_buff == nullptr || ext_buff == nullptr) return;
    if (alm_version != kV1 && alm_version != kV2) return;
    if (alm_version == kV2) {
        if (static_cast<const void*>(int_buff) != static_cast<const void*>(ext_buff))
            std::memcpy(ext_buff->bytes, int_buff->bytes, ALM_REC_SIZE_V2);
        dates_to_gmt(ext_buff->bytes, dates);
        return;
    }
    unsigned char src[ALM_REC_SIZE_V2];
    std::memcpy(src, int_buff->bytes, sizeof src);
    v1_widen(kind, src, ext_buff->bytes);
}

void write_record(V1Kind kind, std::span<const DateField> dates, const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff,
                  std::int16_t alm_version) {
    if (int_buff == nullptr || ext_buff == nullptr) return;
    if (alm_version != kV1 && alm_version != kV2) return;
    unsigned char src[ALM_REC_SIZE_V2];
    std::memcpy(src, ext_buff->bytes, sizeof src);
    if (alm_version == kV2) {
        std::memcpy(int_buff->bytes, src, sizeof src);
        dates_to_local(int_buff->bytes, dates);
    } else {
        v1_narrow(kind, src, int_buff->bytes);
    }
}

using ReadFn = std::int16_t (*)(const ALMRECTYPE_INT*, ALMRECTYPE*, std::int16_t);
using WriteFn = std::int16_t (*)(const ALMRECTYPE*, ALMRECTYPE_INT*, std::int16_t);

struct KindEntry {
    std::int16_t code;
    ReadFn read;
    WriteFn write;
};

constexpr KindEntry kKinds[] = {
    {SH_CODE, alm_i_2_e_HDR, alm_e_2_i_HDR},   {SCI_CODE, alm_i_2_e_CPU, alm_e_2_i_CPU},
    {SS_CODE, alm_i_2_e_SCHED, alm_e_2_i_SCHED}, {SJ_CODE, alm_i_2_e_JOB, alm_e_2_i_JOB},
    {SM_CODE, alm_i_2_e_MSG, alm_e_2_i_MSG},   {SF_CODE, alm_i_2_e_FILE, alm_e_2_i_FILE},
    {SR_CODE, alm_i_2_e_RSRC, alm_e_2_i_RSRC}, {SC_CODE, alm_i_2_e_CAL, alm_e_2_i_CAL},
    {ST_CODE, alm_i_2_e_ST, alm_e_2_i_ST},     {SD_CODE, alm_i_2_e_DEP, alm_e_2_i_DEP},
    {PJ_CODE, alm_i_2_e_PJ, alm_e_2_i_PJ},
};

const KindEntry* find_kind(std::int16_t code) {
    for (const auto& k : kKinds)
        if (k.code == code) return &k;
    return nullptr;
}

}  // namespace

std::int16_t alm_i_2_e(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version) {
    if (int_buff == nullptr || ext_buff == nullptr) return 1;
    const auto code = static_cast<std::int16_t>(load_le16(int_buff->bytes));
    const KindEntry* k = find_kind(code);
    if (k == nullptr) {
        report_unknown_record(kMsgUnknownOnRead, kLineUnknownOnRead, code);
        return 1;
    }
    k->read(int_buff, ext_buff, alm_version);
    return 0;
}

std::int16_t alm_e_2_i(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version) {
    if (int_buff == nullptr || ext_buff == nullptr) return 0;
    const auto code = static_cast<std::int16_t>(load_le16(ext_buff->bytes));
    const KindEntry* k = find_kind(code);
    if (k == nullptr) {
        report_unknown_record(kMsgUnknownOnWrite, kLineUnknownOnWrite, code);
        return 0;
    }
    k->write(ext_buff, int_buff, alm_version);
    return 0;
}

#define ALM_FORMS(SUFFIX, KIND, DATES)                                                                         \
    std::int16_t alm_i_2_e_##SUFFIX(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version) { \
        read_record(V1Kind::KIND, DATES, int_buff, ext_buff, alm_version);                                       \
        return 0;                                                                                                \
    }                                                                                                            \
    std::int16_t alm_e_2_i_##SUFFIX(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version) { \
        write_record(V1Kind::KIND, DATES, ext_buff, int_buff, alm_version);                                      \
        return 0;                                                                                                \
    }

ALM_FORMS(HDR, Hdr, kHdrDates)
ALM_FORMS(CPU, Cpu, kCpuDates)
ALM_FORMS(SCHED, Sched, kSchedDates)
ALM_FORMS(JOB, Job, kJobDates)
ALM_FORMS(MSG, Msg, kMsgDates)
ALM_FORMS(FILE, File, {})
ALM_FORMS(RSRC, Rsrc, {})
ALM_FORMS(CAL, Cal, {})
ALM_FORMS(USER_DEFN, UserDefn, {})
ALM_FORMS(ST, Str, {})
ALM_FORMS(DEP, Dep, {})
ALM_FORMS(PJ, Pj, {})

#undef ALM_FORMS

}  // namespace alm
