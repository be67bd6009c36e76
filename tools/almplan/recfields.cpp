#include "recfields.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

#include "util/endian.h"

namespace alm {
namespace {

// Every row but the groups, whose members and views are listed instead.
constexpr bool listed(const FieldSpec& f) { return !f.is_group(); }

constexpr FieldDesc desc_of(const FieldSpec& f) {
    const bool text = f.v2.type == FieldType::text;
    const auto width = static_cast<std::uint16_t>(text ? f.v2.size : element_width(f.v2.type));
    return FieldDesc{f.name,
                     f.v2.off,
                     width,
                     static_cast<std::uint16_t>(f.v2.size / width),
                     text                   ? ValueType::Text
                     : is_signed(f.v2.type) ? ValueType::Signed
                                            : ValueType::Unsigned,
                     f.part == Part::view ? FieldRole::Alias
                     : f.is_link          ? FieldRole::RecPtr
                                          : FieldRole::Plain};
}

template <const auto& table>
constexpr auto descs_of() {
    constexpr std::size_t n = [] {
        std::size_t k = 0;
        for (const FieldSpec& f : table) k += listed(f) ? 1 : 0;
        return k;
    }();
    std::array<FieldDesc, n> out{};
    std::size_t i = 0;
    for (const FieldSpec& f : table)
        if (listed(f)) out[i++] = desc_of(f);
    return out;
}

constexpr auto kHeaderDescs = descs_of<kHeaderFields>();
constexpr auto kCpuDescs = descs_of<kWorkstationFields>();
constexpr auto kSchedDescs = descs_of<kScheduleFields>();
constexpr auto kJobDescs = descs_of<kJobFields>();
constexpr auto kPromptDescs = descs_of<kPromptFields>();
constexpr auto kFileDescs = descs_of<kFileFields>();
constexpr auto kResourceDescs = descs_of<kResourceFields>();
constexpr auto kCalendarDescs = descs_of<kCalendarFields>();
constexpr auto kStringDescs = descs_of<kStringFields>();

struct KindInfo {
    const char* word;
    std::int16_t code;
    std::span<const FieldDesc> fields;
    std::span<const FieldSpec> table;
};

// Indexed by RecKind.
constexpr std::array<KindInfo, REC_KIND_COUNT> kKinds{{
    {"header", SH_CODE, kHeaderDescs, kHeaderFields},
    {"workstation", SCI_CODE, kCpuDescs, kWorkstationFields},
    {"schedule", SS_CODE, kSchedDescs, kScheduleFields},
    {"job", SJ_CODE, kJobDescs, kJobFields},
    {"prompt", SM_CODE, kPromptDescs, kPromptFields},
    {"file", SF_CODE, kFileDescs, kFileFields},
    {"resource", SR_CODE, kResourceDescs, kResourceFields},
    {"calendar", SC_CODE, kCalendarDescs, kCalendarFields},
    {"string", ST_CODE, kStringDescs, kStringFields},
}};

constexpr const KindInfo& info(RecKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

// Every kind built here keeps its ..._rec_version word at offset 6.
constexpr std::size_t kRecVersionOffset = 6;
static_assert(offsetof(SH_RECTYPE, sh_rec_version) == kRecVersionOffset);
static_assert(offsetof(SC_RECTYPE, sc_rec_version) == kRecVersionOffset);
static_assert(offsetof(ST_RECTYPE, st_rec_version) == kRecVersionOffset);

}  // namespace

std::span<const FieldDesc> record_fields(RecKind kind) { return info(kind).fields; }

const FieldDesc* find_field(RecKind kind, std::string_view name) {
    for (const FieldDesc& f : info(kind).fields) {
        if (name == f.name) return &f;
    }
    return nullptr;
}

std::optional<RecKind> kind_having_field(std::string_view name, RecKind kind) {
    for (int k = 0; k < REC_KIND_COUNT; ++k) {
        auto other = static_cast<RecKind>(k);
        if (other != kind && find_field(other, name) != nullptr) return other;
    }
    return std::nullopt;
}

std::int16_t record_code(RecKind kind) { return info(kind).code; }
const char* kind_word(RecKind kind) { return info(kind).word; }

void init_record(RecKind kind, ALMRECTYPE& rec) {
    std::memset(rec.bytes, 0, sizeof rec.bytes);
    for (const FieldDesc& f : info(kind).fields) {
        if (f.role == FieldRole::Alias) continue;
        if (f.type == ValueType::Text) {
            std::memset(rec.bytes + f.offset, ' ', f.size());
        } else if (f.role == FieldRole::RecPtr) {
            for (int i = 0; i < f.count; ++i) store_number(rec.bytes, f, i, NULL_REC);
        }
    }
    store_le16(rec.bytes, static_cast<std::uint16_t>(info(kind).code));
    store_le16(rec.bytes + kRecVersionOffset, 1);
}

bool number_fits(const FieldDesc& f, std::int64_t v) {
    if (f.type == ValueType::Text) return false;
    const int bits = f.width * 8;
    const std::int64_t lo = -(std::int64_t{1} << (bits - 1));
    const std::int64_t hi = (std::int64_t{1} << bits) - 1;
    return v >= lo && v <= hi;
}

void store_number(unsigned char* rec, const FieldDesc& f, int index, std::int64_t v) {
    unsigned char* p = rec + f.offset + index * f.width;
    const auto u = static_cast<std::uint64_t>(v);
    switch (f.width) {
    case 1: *p = static_cast<unsigned char>(u); break;
    case 2: store_le16(p, static_cast<std::uint16_t>(u)); break;
    default: store_le32(p, static_cast<std::uint32_t>(u)); break;
    }
}

std::int64_t load_number(const unsigned char* rec, const FieldDesc& f, int index) {
    const unsigned char* p = rec + f.offset + index * f.width;
    const bool sign = f.type == ValueType::Signed;
    switch (f.width) {
    case 1: return sign ? static_cast<std::int8_t>(*p) : *p;
    case 2: return sign ? static_cast<std::int16_t>(load_le16(p)) : load_le16(p);
    default: return sign ? static_cast<std::int32_t>(load_le32(p)) : load_le32(p);
    }
}

void store_text(unsigned char* rec, const FieldDesc& f, std::string_view text) {
    unsigned char* p = rec + f.offset;
    const std::size_t n = text.size() < f.width ? text.size() : f.width;
    if (n > 0) std::memcpy(p, text.data(), n);  // an empty view may have no data
    std::memset(p + n, ' ', f.width - n);
}

const FieldSpec* find_date_field(RecKind kind, std::string_view name) {
    const FieldSpec* f = find_spec(info(kind).table, name);
    return f != nullptr && f->date_kind != DateKind::none ? f : nullptr;
}

}  // namespace alm
