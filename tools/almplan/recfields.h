// Field descriptors of the plan records that almplan builds, drawn from the
// plan library's tables of fields, so that any field can be set by its name.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "plan/almrecs.h"

namespace alm {

enum class RecKind : std::uint8_t { Header, Cpu, Sched, Job, Prompt, File, Resource, Calendar, String };
inline constexpr int REC_KIND_COUNT = 9;

enum class ValueType : std::uint8_t { Signed, Unsigned, Text };

enum class FieldRole : std::uint8_t {
    Plain,   // zero, or blanks for text, in a new record
    RecPtr,  // a record number: the null record in a new record
    Alias,   // another view of bytes that a Plain or RecPtr field initialises
};

struct FieldDesc {
    const char* name;
    std::uint16_t offset;
    std::uint16_t width;  // bytes of one element; a text field is one element
    std::uint16_t count;  // elements: 1 unless the field is an array
    ValueType type;
    FieldRole role;

    constexpr std::uint16_t size() const { return static_cast<std::uint16_t>(width * count); }
};

// Every field of one record kind's V2 layout, in layout order.
std::span<const FieldDesc> record_fields(RecKind kind);
const FieldDesc* find_field(RecKind kind, std::string_view name);
// The first kind other than `kind` that has a field of this name, if any.
std::optional<RecKind> kind_having_field(std::string_view name, RecKind kind);

std::int16_t record_code(RecKind kind);
// "header", "workstation", "schedule", ... as used in the description.
const char* kind_word(RecKind kind);

// A new external record of the kind: type code, zeros, blank text and null
// record pointers.
void init_record(RecKind kind, ALMRECTYPE& rec);

// Range accepted for a numeric element: both the signed and the unsigned
// reading of its width, so that any bit pattern can be written.
bool number_fits(const FieldDesc& f, std::int64_t v);
// Little-endian store of element `index`; v must fit.
void store_number(unsigned char* rec, const FieldDesc& f, int index, std::int64_t v);
std::int64_t load_number(const unsigned char* rec, const FieldDesc& f, int index);
// Blank-padded store; the text must not be longer than the field.
void store_text(unsigned char* rec, const FieldDesc& f, std::string_view text);

// The row of a date field of the external form, whose `time` names the hhmm
// field that goes with it (null when the date carries no time of day).
const FieldSpec* find_date_field(RecKind kind, std::string_view name);

}  // namespace alm
