// Decoding of the 512-byte plan records that query replies carry. Each field
// is read back according to how the server sent it: big-endian, low half
// (low 16 bits big-endian, then two zero bytes), as delivered (the plan
// library's little-endian order) or text (blank-padded, trimmed here).
// A few fields travel differently in the dependency query than in the
// workstation, schedule and job queries, so decoding takes the reply's source.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "jsonvalue.h"

namespace alm {

inline constexpr std::size_t WIRE_RECORD_BYTES = 512;

enum class ReplySource { CpuQuery, SchedQuery, JobQuery, DepQuery };

enum class RecordKind {
    Workstation,
    Schedule,
    Job,
    SchedDep,  // a schedule sent as somebody's dependency ("SD")
    JobDep,    // a job sent as somebody's dependency ("JD")
    Prompt,
    File,
    Resource,
    Unknown,
};

// The kind that a record's type code (bytes 0-1, big-endian) names.
RecordKind kind_of_record(const unsigned char* rec);
const char* record_kind_name(RecordKind kind);
std::uint16_t record_type_code(const unsigned char* rec);

// Every field of the record, in record order, under its plan name; numbers
// as integers, texts without trailing blanks, arrays and unions as arrays and
// objects. An Unknown kind yields only the type code.
JsonValue decode_record(const unsigned char* rec, RecordKind kind, ReplySource source);

// Fixed-width field text without its trailing blanks (and NULs).
std::string trim_field(const unsigned char* p, std::size_t width);

// Accessors for decoded records: 0 or "" when the field is absent.
std::int64_t field_int(const JsonValue& rec, std::string_view name);
std::string field_text(const JsonValue& rec, std::string_view name);

}  // namespace alm
