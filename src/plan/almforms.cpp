// Conversion of records between the file's form (V1 or V2) and the form callers see.
#include "plan/almforms.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>

#include "plan/almforms_v1.h"
#include "plan/unknownrecord.h"
#include "util/bytecopy.h"
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
    std::uint16_t date_off = 0;
    int time_off = -1;
};

constexpr int v2_offset_of(std::span<const FieldSpec> table, std::string_view name) {
    for (const FieldSpec& f : table)
        if (name == f.name) return f.v2.off;
    return -1;
}

constexpr std::size_t date_count(std::span<const FieldSpec> table) {
    std::size_t n = 0;
    for (const FieldSpec& f : table) n += f.date_kind != DateKind::none ? 1 : 0;
    return n;
}

// The date fields of a kind, read from its table of fields: each with the
// time of day it is converted at, unless the table says midnight.
template <const auto& table>
constexpr auto dates_of() {
    std::array<DateField, date_count(table)> out{};
    std::size_t i = 0;
    for (const FieldSpec& f : table) {
        if (f.date_kind == DateKind::none) continue;
        const bool midnight = f.date_kind == DateKind::day_midnight || f.time == nullptr;
        out[i++] = DateField{f.v2.off, midnight ? -1 : v2_offset_of(table, f.time)};
    }
    return out;
}

constexpr auto kHdrDates = dates_of<kHeaderFields>();
constexpr auto kCpuDates = dates_of<kWorkstationFields>();
constexpr auto kSchedDates = dates_of<kScheduleFields>();
constexpr auto kJobDates = dates_of<kJobFields>();
constexpr auto kMsgDates = dates_of<kPromptFields>();
static_assert(kHdrDates.size() == 3 && kCpuDates.size() == 1 && kSchedDates.size() == 4 && kJobDates.size() == 3 &&
              kMsgDates.size() == 2);
static_assert(kJobDates[0].date_off == offsetof(SJ_RECTYPE, sj_until_date) &&
              kJobDates[0].time_off == static_cast<int>(offsetof(SJ_RECTYPE, sj_until_time)));
static_assert(kHdrDates[0].time_off == -1 && kHdrDates[1].time_off == -1 &&
              kHdrDates[2].time_off == static_cast<int>(offsetof(SH_RECTYPE, sh_time_started)));

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

// Both buffers are whole 512-byte records, so they either coincide or are
// apart; a coinciding V1 source is first copied aside.
void read_record(V1Kind kind, std::span<const DateField> dates, const unsigned char* src, unsigned char* dst,
                 std::int16_t alm_version) {
    if (alm_version != kV1 && alm_version != kV2) return;
    if (alm_version == kV2) {
        if (src != dst) copy_bytes(dst, src, ALM_REC_SIZE_V2);
        dates_to_gmt(dst, dates);
        return;
    }
    unsigned char copy[ALM_REC_SIZE_V2];
    std::memcpy(copy, src, sizeof copy);
    v1_widen(kind, copy, dst);
}

void write_record(V1Kind kind, std::span<const DateField> dates, const unsigned char* src, unsigned char* dst,
                  std::int16_t alm_version) {
    if (alm_version != kV1 && alm_version != kV2) return;
    unsigned char copy[ALM_REC_SIZE_V2];
    std::memcpy(copy, src, sizeof copy);
    if (alm_version == kV2) {
        std::memcpy(dst, copy, sizeof copy);
        dates_to_local(dst, dates);
    } else {
        v1_narrow(kind, copy, dst);
    }
}

struct KindEntry {
    std::int16_t code;
    V1Kind kind;
    std::span<const DateField> dates;
};

constexpr KindEntry kKinds[] = {
    {SH_CODE, V1Kind::Hdr, kHdrDates},     {SCI_CODE, V1Kind::Cpu, kCpuDates}, {SS_CODE, V1Kind::Sched, kSchedDates},
    {SJ_CODE, V1Kind::Job, kJobDates},     {SM_CODE, V1Kind::Msg, kMsgDates},  {SF_CODE, V1Kind::File, {}},
    {SR_CODE, V1Kind::Rsrc, {}},           {SC_CODE, V1Kind::Cal, {}},         {ST_CODE, V1Kind::Str, {}},
    {SD_CODE, V1Kind::Dep, {}},            {PJ_CODE, V1Kind::Pj, {}},
};

const KindEntry* find_kind(std::int16_t code) {
    for (const auto& k : kKinds)
        if (k.code == code) return &k;
    return nullptr;
}

}  // namespace

std::int16_t alm_i_2_e_bytes(const unsigned char* src, unsigned char* dst, std::int16_t alm_version) {
    if (src == nullptr || dst == nullptr) return 1;
    const auto code = static_cast<std::int16_t>(load_le16(src));
    const KindEntry* k = find_kind(code);
    if (k == nullptr) {
        report_unknown_record(kMsgUnknownOnRead, kLineUnknownOnRead, code);
        return 1;
    }
    read_record(k->kind, k->dates, src, dst, alm_version);
    return 0;
}

std::int16_t alm_i_2_e(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version) {
    if (int_buff == nullptr || ext_buff == nullptr) return 1;
    return alm_i_2_e_bytes(int_buff->bytes, ext_buff->bytes, alm_version);
}

std::int16_t alm_e_2_i(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version) {
    if (int_buff == nullptr || ext_buff == nullptr) return 0;
    const auto code = static_cast<std::int16_t>(load_le16(ext_buff->bytes));
    const KindEntry* k = find_kind(code);
    if (k == nullptr) {
        report_unknown_record(kMsgUnknownOnWrite, kLineUnknownOnWrite, code);
        return 0;
    }
    write_record(k->kind, k->dates, ext_buff->bytes, int_buff->bytes, alm_version);
    return 0;
}

#define ALM_FORMS(SUFFIX, KIND, DATES)                                                                         \
    std::int16_t alm_i_2_e_##SUFFIX(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version) { \
        if (int_buff != nullptr && ext_buff != nullptr)                                                          \
            read_record(V1Kind::KIND, DATES, int_buff->bytes, ext_buff->bytes, alm_version);                     \
        return 0;                                                                                                \
    }                                                                                                            \
    std::int16_t alm_e_2_i_##SUFFIX(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version) { \
        if (int_buff != nullptr && ext_buff != nullptr)                                                          \
            write_record(V1Kind::KIND, DATES, ext_buff->bytes, int_buff->bytes, alm_version);                    \
        return 0;                                                                                                \
    }

ALM_FORMS(HDR, Hdr, kHdrDates)
ALM_FORMS(CPU, Cpu, kCpuDates)
ALM_FORMS(SCHED, Sched, kSchedDates)
ALM_FORMS(JOB, Job, kJobDates)
ALM_FORMS(MSG, Msg, kMsgDates)
ALM_FORMS(FILE, File, std::span<const DateField>{})
ALM_FORMS(RSRC, Rsrc, std::span<const DateField>{})
ALM_FORMS(CAL, Cal, std::span<const DateField>{})
ALM_FORMS(USER_DEFN, UserDefn, std::span<const DateField>{})
ALM_FORMS(ST, Str, std::span<const DateField>{})
ALM_FORMS(DEP, Dep, std::span<const DateField>{})
ALM_FORMS(PJ, Pj, std::span<const DateField>{})

#undef ALM_FORMS

}  // namespace alm
