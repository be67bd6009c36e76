// Field-by-field moves between V1 records and the V2 layout.
#include "plan/almforms_v1.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

#include "plan/almrecs.h"
#include "util/dateutil.h"
#include "util/endian.h"

namespace alm {

namespace {

// The moves are drawn from the tables of fields at compile time: every top
// row present in both layouts, and the members of the job's unions by the
// variant that the job's flags choose.
constexpr V1Move move_of(const FieldSpec& f) {
    if (f.v1.type == FieldType::yymmdd) return V1Move::Yymmdd;
    if (f.v1.type == FieldType::cal) return V1Move::CalDay;
    if (element_width(f.v2.type) == 4 && element_width(f.v1.type) == 2)
        return is_signed(f.v1.type) ? V1Move::SignExtend16 : V1Move::ZeroExtend16;
    return V1Move::Bytes;
}

constexpr V1FieldMove move_for(const FieldSpec& f) {
    return {f.name, f.v1.off, f.v2.off, f.v1.size, f.v2.size, move_of(f)};
}

constexpr bool moved(const FieldSpec& f, Variant v) {
    if (f.v1.size == 0) return false;
    if (v != Variant::any) return f.variant == v;
    return f.part == Part::top && f.variant == Variant::any;
}

// A V1 place inside another moved row's (the string record's own number
// inside its string space) is moved after it, so that narrowing leaves it.
constexpr bool inside_another(std::span<const FieldSpec> table, const FieldSpec& f) {
    for (const FieldSpec& g : table) {
        if (&g == &f || !moved(g, Variant::any)) continue;
        if (g.v1.off <= f.v1.off && f.v1.off + f.v1.size <= g.v1.off + g.v1.size) return true;
    }
    return false;
}

template <const auto& table, Variant v>
constexpr std::size_t move_count() {
    std::size_t n = 0;
    for (const FieldSpec& f : table) n += moved(f, v) ? 1 : 0;
    return n;
}

template <const auto& table, Variant v>
constexpr auto moves_of() {
    std::array<V1FieldMove, move_count<table, v>()> out{};
    std::size_t n = 0;
    for (const bool late : {false, true}) {
        for (const FieldSpec& f : table) {
            if (moved(f, v) && inside_another(table, f) == late) out[n++] = move_for(f);
        }
    }
    return out;
}

constexpr auto kHdrMoves = moves_of<kHeaderFields, Variant::any>();
constexpr auto kCpuMoves = moves_of<kWorkstationFields, Variant::any>();
constexpr auto kSchedMoves = moves_of<kScheduleFields, Variant::any>();
constexpr auto kJobMoves = moves_of<kJobFields, Variant::any>();
constexpr auto kJclStringMoves = moves_of<kJobFields, Variant::long_jcl>();
constexpr auto kAliasMoves = moves_of<kJobFields, Variant::alias>();
constexpr auto kJclFileMoves = moves_of<kJobFields, Variant::jcl_file>();
constexpr auto kSubmitMoves = moves_of<kJobFields, Variant::submit>();
constexpr auto kDepsMoves = moves_of<kJobFields, Variant::deps>();
constexpr auto kXkesMoves = moves_of<kJobFields, Variant::external>();
constexpr auto kMsgMoves = moves_of<kPromptFields, Variant::any>();
constexpr auto kFileMoves = moves_of<kFileFields, Variant::any>();
constexpr auto kRsrcMoves = moves_of<kResourceFields, Variant::any>();
constexpr auto kCalMoves = moves_of<kCalendarFields, Variant::any>();
constexpr auto kStrMoves = moves_of<kStringFields, Variant::any>();
constexpr auto kDepMoves = moves_of<kDependencyFields, Variant::any>();
constexpr auto kPjMoves = moves_of<kPurgeableFields, Variant::any>();

constexpr bool well_formed(const V1FieldMove& m) {
    if (m.v1_off + m.v1_width > ALM_REC_SIZE_V1 || m.v2_off + m.v2_width > ALM_REC_SIZE_V2) return false;
    switch (m.kind) {
        case V1Move::Bytes: return m.v1_width <= m.v2_width;
        case V1Move::ZeroExtend16:
        case V1Move::SignExtend16:
        case V1Move::CalDay: return m.v1_width % 2 == 0 && m.v2_width == 2 * m.v1_width;
        case V1Move::Yymmdd: return m.v1_width == 4 && m.v2_width == 4;
    }
    return false;
}
template <std::size_t N>
constexpr bool all_well_formed(const std::array<V1FieldMove, N>& moves) {
    return std::all_of(moves.begin(), moves.end(), well_formed);
}
static_assert(all_well_formed(kHdrMoves) && all_well_formed(kCpuMoves) && all_well_formed(kSchedMoves));
static_assert(all_well_formed(kJobMoves) && all_well_formed(kJclStringMoves) && all_well_formed(kAliasMoves));
static_assert(all_well_formed(kJclFileMoves) && all_well_formed(kSubmitMoves) && all_well_formed(kDepsMoves));
static_assert(all_well_formed(kXkesMoves) && all_well_formed(kMsgMoves) && all_well_formed(kFileMoves));
static_assert(all_well_formed(kRsrcMoves) && all_well_formed(kCalMoves) && all_well_formed(kStrMoves));
static_assert(all_well_formed(kDepMoves) && all_well_formed(kPjMoves));

constexpr V1Layout kLayouts[] = {
    {kHdrMoves, kHeaderFields},    {kCpuMoves, kWorkstationFields}, {kSchedMoves, kScheduleFields},
    {kJobMoves, kJobFields},       {kMsgMoves, kPromptFields},      {kFileMoves, kFileFields},
    {kRsrcMoves, kResourceFields}, {kCalMoves, kCalendarFields},    {kStrMoves, kStringFields},
    {kDepMoves, kDependencyFields}, {kPjMoves, kPurgeableFields},   {{}, {}},
};
static_assert(std::size(kLayouts) == static_cast<std::size_t>(V1Kind::UserDefn) + 1);

// V2-only fields that widening sets (record versions, the header's
// continuation), after the moves.
void set_widened(std::span<const FieldSpec> table, unsigned char* v2) {
    for (const FieldSpec& f : table) {
        if (!f.widens) continue;
        if (f.v2.size == 2) store_le16(v2 + f.v2.off, static_cast<std::uint16_t>(f.widened));
        else store_le32(v2 + f.v2.off, static_cast<std::uint32_t>(f.widened));
    }
}

void widen_one(const V1FieldMove& m, const unsigned char* v1, unsigned char* v2) {
    const unsigned char* src = v1 + m.v1_off;
    unsigned char* dst = v2 + m.v2_off;
    const int n = m.v1_width / 2;
    switch (m.kind) {
        case V1Move::Bytes:
            std::memcpy(dst, src, m.v1_width);
            break;
        case V1Move::ZeroExtend16:
            for (int i = 0; i < n; ++i) store_le32(dst + 4 * i, load_le16(src + 2 * i));
            break;
        case V1Move::SignExtend16:
            for (int i = 0; i < n; ++i) {
                const auto v = static_cast<std::int16_t>(load_le16(src + 2 * i));
                store_le32(dst + 4 * i, static_cast<std::uint32_t>(std::int32_t{v}));
            }
            break;
        case V1Move::Yymmdd:
            store_le32(dst, static_cast<std::uint32_t>(yymmdd_to_epoch(static_cast<std::int32_t>(load_le32(src)), 0)));
            break;
        case V1Move::CalDay:
            for (int i = 0; i < n; ++i)
                store_le32(dst + 4 * i, static_cast<std::uint32_t>(cal_to_epoch(load_le16(src + 2 * i))));
            break;
    }
}

void narrow_one(const V1FieldMove& m, const unsigned char* v2, unsigned char* v1) {
    const unsigned char* src = v2 + m.v2_off;
    unsigned char* dst = v1 + m.v1_off;
    const int n = m.v1_width / 2;
    switch (m.kind) {
        case V1Move::Bytes:
            std::memcpy(dst, src, m.v1_width);
            break;
        case V1Move::ZeroExtend16:
        case V1Move::SignExtend16:
            for (int i = 0; i < n; ++i) store_le16(dst + 2 * i, static_cast<std::uint16_t>(load_le32(src + 4 * i)));
            break;
        case V1Move::Yymmdd:
            // In the numeric form of the moment: ccyymmdd unless UNIDATESTRIP
            // is 0. The 32-bit field holds either; reading takes both.
            store_le32(dst, static_cast<std::uint32_t>(epoch_to_yymmdd(static_cast<std::int32_t>(load_le32(src)))));
            break;
        case V1Move::CalDay:
            for (int i = 0; i < n; ++i)
                store_le16(dst + 2 * i, epoch_to_cal(static_cast<std::int32_t>(load_le32(src + 4 * i))));
            break;
    }
}

void widen_all(std::span<const V1FieldMove> moves, const unsigned char* v1, unsigned char* v2) {
    for (const auto& m : moves) widen_one(m, v1, v2);
}
void narrow_all(std::span<const V1FieldMove> moves, const unsigned char* v2, unsigned char* v1) {
    for (const auto& m : moves) narrow_one(m, v2, v1);
}

}  // namespace

const V1Layout& v1_layout(V1Kind kind) { return kLayouts[static_cast<std::size_t>(kind)]; }

JclForm job_jcl_form(std::uint16_t sj_flags2) {
    if (flag_set(sj_flags2, sjf2_long_jcl)) return JclForm::JclString;
    if (flag_set(sj_flags2, sjf2_alias)) return JclForm::Alias;
    return JclForm::JclFile;
}

SubdepForm job_subdep_form(std::int16_t sj_num_depends, std::uint16_t sj_re_flags) {
    if (sj_num_depends == -1) return SubdepForm::Submit;
    if (!flag_set(sj_re_flags, sjrf_external)) return SubdepForm::Deps;
    return SubdepForm::Xkes;
}

std::span<const V1FieldMove> job_jcl_moves(JclForm form) {
    switch (form) {
        case JclForm::JclString: return kJclStringMoves;
        case JclForm::Alias: return kAliasMoves;
        case JclForm::JclFile: break;
    }
    return kJclFileMoves;
}

std::span<const V1FieldMove> job_subdep_moves(SubdepForm form) {
    switch (form) {
        case SubdepForm::Submit: return kSubmitMoves;
        case SubdepForm::Deps: return kDepsMoves;
        case SubdepForm::Xkes: break;
    }
    return kXkesMoves;
}

void v1_widen(V1Kind kind, const unsigned char* v1, unsigned char* v2) {
    std::memset(v2, ' ', ALM_REC_SIZE_V2);
    if (kind == V1Kind::UserDefn) {
        std::memcpy(v2, v1, ALM_REC_SIZE_V1);
        return;
    }
    const V1Layout& layout = v1_layout(kind);
    widen_all(layout.moves, v1, v2);
    if (kind == V1Kind::Job) {
        const auto flags2 = load_le16(v1 + offsetof(SJ_RECTYPE_V1, sj_flags2));
        const auto re_flags = load_le16(v1 + offsetof(SJ_RECTYPE_V1, sj_re_flags));
        const auto num_depends = static_cast<std::int16_t>(load_le16(v1 + offsetof(SJ_RECTYPE_V1, sj_num_depends)));
        widen_all(job_jcl_moves(job_jcl_form(flags2)), v1, v2);
        widen_all(job_subdep_moves(job_subdep_form(num_depends, re_flags)), v1, v2);
    }
    set_widened(layout.fields, v2);
}

void v1_narrow(V1Kind kind, const unsigned char* v2, unsigned char* v1) {
    std::memset(v1, ' ', ALM_REC_SIZE_V1);
    if (kind == V1Kind::UserDefn) {
        std::memcpy(v1, v2, ALM_REC_SIZE_V1);
        return;
    }
    narrow_all(v1_layout(kind).moves, v2, v1);
    if (kind == V1Kind::Job) {
        const auto flags2 = load_le16(v2 + offsetof(SJ_RECTYPE, sj_flags2));
        const auto re_flags = load_le16(v2 + offsetof(SJ_RECTYPE, sj_re_flags));
        const auto num_depends = static_cast<std::int16_t>(load_le16(v2 + offsetof(SJ_RECTYPE, sj_num_depends)));
        narrow_all(job_jcl_moves(job_jcl_form(flags2)), v2, v1);
        narrow_all(job_subdep_moves(job_subdep_form(num_depends, re_flags)), v2, v1);
    }
}

}  // namespace alm
