// The row type of the tables of fields, one table per record kind: where a
// field lies in the V2 and V1 layouts, how query replies send it, what it
// means (record link, date) and how almplan's dump shows it. The V1 moves,
// the wire forms, almplan's field list and dump and almq's decoding all walk
// these tables; every row is checked against the layout structs at compile
// time by rows_agree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

namespace alm {

enum class FieldType : std::uint8_t {
    none,    // not in this layout
    i16, u16, i32, u32,
    u8,      // bytes taken as small numbers
    text,    // blank-padded characters
    bytes,   // a struct or union: its members and views are the rows below it
    yymmdd,  // V1 only: an i32 date written as yymmdd
    cal,     // V1 only: a u16 calendar day
};

// Bytes per element; 0 for text and groups, whose elements are the whole field.
constexpr int element_width(FieldType t) {
    switch (t) {
        case FieldType::i16:
        case FieldType::u16:
        case FieldType::cal: return 2;
        case FieldType::i32:
        case FieldType::u32:
        case FieldType::yymmdd: return 4;
        case FieldType::u8: return 1;
        case FieldType::none:
        case FieldType::text:
        case FieldType::bytes: break;
    }
    return 0;
}
constexpr bool is_signed(FieldType t) { return t == FieldType::i16 || t == FieldType::i32; }
constexpr bool is_number(FieldType t) { return element_width(t) != 0; }

struct Place {
    std::uint16_t off = 0;
    std::uint16_t size = 0;  // 0: not in this layout
    FieldType type = FieldType::none;
};

// How a reply sends a field.
enum class Wire : std::uint8_t {
    none,            // no reply carries this kind
    as_delivered,    // bytes as the plan library delivers them: numbers stay little-endian, text as it is
    big_endian,      // a 16- or 32-bit number, big-endian
    low_half,        // low 16 bits of a 32-bit field, big-endian, then two zero bytes
    low_half_twice,  // the low half applied twice: low 16 bits little-endian, then two zero bytes
    dep_entries,     // record numbers: the first as many as the record's dependency count in low half
};

// The replies that carry records: the workstation, schedule and job queries,
// and the dependency listing.
enum class ReplyForm : std::uint8_t { query, deps };

enum class Part : std::uint8_t {
    top,     // a field of its own (a group when its type is bytes)
    member,  // a member of the group above, set up in a new record
    view,    // another reading of bytes that a row above sets up
};

// Which member of a job's union a row belongs to; the job's flags choose.
enum class Variant : std::uint8_t { any, by_flags, jcl_file, alias, long_jcl, deps, submit, external };

enum class DateKind : std::uint8_t {
    none,
    day,           // a day epoch, local in a V2 file and GMT for callers, taken at its time of day
    day_midnight,  // likewise, but converted at midnight whatever its time of day
};

// How almplan's dump shows a field (beside a label, in the order of rank).
enum class Show : std::uint8_t { none, text, number, link, status, date, flags, deps, message, qualifier };

struct FlagName {
    int bit;
    const char* name;
};

struct FieldSpec {
    const char* name;
    Place v2;
    Place v1;
    Wire query = Wire::none;
    Wire deps = Wire::none;
    Part part = Part::top;
    Variant variant = Variant::any;
    bool is_link = false;  // names another record: the null record in a new record
    DateKind date_kind = DateKind::none;
    const char* time = nullptr;  // the hhmm field going with a date
    bool widens = false;         // V2 only: set to `widened` when a V1 record is widened
    std::int32_t widened = 0;
    const char* label = nullptr;
    std::uint8_t rank = 0;
    Show how = Show::none;
    std::span<const FlagName> flag_names{};
    // Where the layout structs put the member, for rows_agree.
    std::size_t v2_layout_off = 0, v2_layout_size = 0, v1_layout_off = 0, v1_layout_size = 0;
    FieldType v2_layout_type = FieldType::none, v1_layout_type = FieldType::none;

    constexpr Wire wire(ReplyForm r) const { return r == ReplyForm::query ? query : deps; }
    constexpr bool is_group() const { return v2.type == FieldType::bytes; }
    constexpr int count() const {
        const int w = element_width(v2.type);
        return w == 0 ? 1 : v2.size / w;
    }

    constexpr FieldSpec sent(Wire w) const { return sent(w, w); }
    constexpr FieldSpec sent(Wire q, Wire d) const {
        FieldSpec f = *this;
        f.query = q;
        f.deps = d;
        return f;
    }
    constexpr FieldSpec member(Variant v = Variant::any) const {
        FieldSpec f = *this;
        f.part = Part::member;
        f.variant = v;
        return f;
    }
    constexpr FieldSpec view(Variant v = Variant::any) const {
        FieldSpec f = member(v);
        f.part = Part::view;
        return f;
    }
    constexpr FieldSpec by_flags() const {
        FieldSpec f = *this;
        f.variant = Variant::by_flags;
        return f;
    }
    constexpr FieldSpec link() const {
        FieldSpec f = *this;
        f.is_link = true;
        return f;
    }
    constexpr FieldSpec date(const char* hhmm = nullptr, DateKind k = DateKind::day) const {
        FieldSpec f = *this;
        f.date_kind = k;
        f.time = hhmm;
        return f;
    }
    constexpr FieldSpec widen_to(std::int32_t v) const {
        FieldSpec f = *this;
        f.widens = true;
        f.widened = v;
        return f;
    }
    // Shown by the dump; the default form follows from the row.
    constexpr FieldSpec show(const char* key, int order, Show as = Show::none) const {
        FieldSpec f = *this;
        f.label = key;
        f.rank = static_cast<std::uint8_t>(order);
        f.how = as != Show::none               ? as
                : f.date_kind != DateKind::none ? Show::date
                : f.is_link                     ? Show::link
                : f.v2.type == FieldType::text  ? Show::text
                                                : Show::number;
        return f;
    }
    constexpr FieldSpec flags(const char* key, int order, std::span<const FlagName> names) const {
        FieldSpec f = show(key, order, Show::flags);
        f.flag_names = names;
        return f;
    }
};

constexpr const FieldSpec* find_spec(std::span<const FieldSpec> table, std::string_view name) {
    for (const FieldSpec& f : table)
        if (name == f.name) return &f;
    return nullptr;
}

namespace fieldrow_detail {

constexpr bool same(const char* a, const char* b) {
    if (a == nullptr || b == nullptr) return a == b;
    while (*a != '\0' && *a == *b) ++a, ++b;
    return *a == *b;
}

constexpr bool place_fits(const Place& p, std::size_t off, std::size_t size, int rec_size) {
    if (p.size == 0) return true;
    if (p.off != off || p.size != size || p.off + p.size > rec_size) return false;
    const int w = element_width(p.type);
    return w == 0 || p.size % w == 0;
}

constexpr bool wire_fits(const FieldSpec& f, Wire w) {
    switch (w) {
        case Wire::big_endian: return f.count() == 1 && (f.v2.size == 2 || f.v2.size == 4);
        case Wire::low_half:
        case Wire::low_half_twice: return f.v2.size == 4;
        case Wire::dep_entries: return element_width(f.v2.type) == 4;
        case Wire::none:
        case Wire::as_delivered: break;
    }
    return true;
}

template <class T>
constexpr FieldType layout_type() {
    if constexpr (std::is_array_v<T>) {
        using E = std::remove_extent_t<T>;
        return std::is_same_v<E, char> ? FieldType::text : layout_type<E>();
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
        return FieldType::i16;
    } else if constexpr (std::is_same_v<T, std::uint16_t>) {
        return FieldType::u16;
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        return FieldType::i32;
    } else if constexpr (std::is_same_v<T, std::uint32_t>) {
        return FieldType::u32;
    } else if constexpr (std::is_same_v<T, std::uint8_t>) {
        return FieldType::u8;
    } else {
        return FieldType::bytes;
    }
}

// V1 dates are numbers in the layout struct.
constexpr bool types_fit(const FieldSpec& f) {
    if (f.v2.type != f.v2_layout_type) return false;
    if (f.v1.size == 0 || f.v1.type == f.v1_layout_type) return true;
    return (f.v1.type == FieldType::yymmdd && f.v1_layout_type == FieldType::i32) ||
           (f.v1.type == FieldType::cal && f.v1_layout_type == FieldType::u16);
}

constexpr FieldSpec make_row(const char* name, Place v2, Place v1, std::size_t off2, std::size_t size2, FieldType type2,
                             std::size_t off1, std::size_t size1, FieldType type1) {
    FieldSpec f{};
    f.name = name;
    f.v2 = v2;
    f.v1 = v1;
    f.v2_layout_off = off2;
    f.v2_layout_size = size2;
    f.v2_layout_type = type2;
    f.v1_layout_off = off1;
    f.v1_layout_size = size1;
    f.v1_layout_type = type1;
    return f;
}

constexpr bool has_time(std::span<const FieldSpec> table, const char* name) {
    for (const FieldSpec& f : table)
        if (same(f.name, name)) return f.v2.type == FieldType::i16;
    return false;
}

}  // namespace fieldrow_detail

// The index of the first row that disagrees with the layout structs, or the
// table's size when the top rows do not cover the record; -1 when all is
// well. Top rows follow each other from byte 0 to v2_size without gap or
// overlap, members and views lie inside the row they belong to, wire forms
// fit their fields and every date's time of day is a row of the table.
constexpr int first_disagreeing_row(std::span<const FieldSpec> table, int v2_size, int v1_size) {
    using namespace fieldrow_detail;
    std::size_t next = 0;
    std::size_t group_end = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const FieldSpec& f = table[i];
        const int row = static_cast<int>(i);
        if (!place_fits(f.v2, f.v2_layout_off, f.v2_layout_size, v2_size) || f.v2.size == 0) return row;
        if (!place_fits(f.v1, f.v1_layout_off, f.v1_layout_size, v1_size)) return row;
        if (!types_fit(f)) return row;
        if (!wire_fits(f, f.query) || !wire_fits(f, f.deps)) return row;
        if (f.time != nullptr && !has_time(table, f.time)) return row;
        if (f.part == Part::top) {
            if (f.v2.off != next) return row;
            next = f.v2.off + f.v2.size;
            group_end = next;
        } else if (f.v2.off + f.v2.size > group_end) {
            return row;
        }
    }
    return next == static_cast<std::size_t>(v2_size) ? -1 : static_cast<int>(table.size());
}

}  // namespace alm

// Row makers for the tables. K is the layout prefix (SCI for SCI_RECTYPE and
// SCI_RECTYPE_V1), M/M1 the members in the V2 and V1 layouts; the places are
// written out as numbers, and first_disagreeing_row checks them against
// offsetof, sizeof and the member types.
#define ALM_LAYOUT_OF(REC, M)                                                          \
    offsetof(REC, M), sizeof(std::declval<REC&>().M),                                  \
        ::alm::fieldrow_detail::layout_type<decltype(std::declval<REC&>().M)>()
#define ALM_ROW_AS(K, NAME, M, OFF, SIZE, TYPE, M1, OFF1, SIZE1, TYPE1)                                        \
    ::alm::fieldrow_detail::make_row(NAME, {OFF, SIZE, ::alm::FieldType::TYPE}, {OFF1, SIZE1, ::alm::FieldType::TYPE1}, \
                                      ALM_LAYOUT_OF(K##_RECTYPE, M), ALM_LAYOUT_OF(K##_RECTYPE_V1, M1))
#define ALM_ROW(K, M, OFF, SIZE, TYPE, OFF1, SIZE1, TYPE1) ALM_ROW_AS(K, #M, M, OFF, SIZE, TYPE, M, OFF1, SIZE1, TYPE1)
// A field of the V2 layout only.
#define ALM_ROW2_AS(K, NAME, M, OFF, SIZE, TYPE)                                                         \
    ::alm::fieldrow_detail::make_row(NAME, {OFF, SIZE, ::alm::FieldType::TYPE}, {}, ALM_LAYOUT_OF(K##_RECTYPE, M), \
                                      0, 0, ::alm::FieldType::none)
#define ALM_ROW2(K, M, OFF, SIZE, TYPE) ALM_ROW2_AS(K, #M, M, OFF, SIZE, TYPE)
