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
#include <vector>

#include "jsonwriter.h"

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

// Every field of the record, in record order, under its plan name, as
// members of the JSON object that w has open: numbers as integers, texts
// without trailing blanks, arrays and unions as arrays and objects. An
// Unknown kind yields only the type code.
void write_record_json(const unsigned char* rec, RecordKind kind, ReplySource source, JsonWriter& w);

// One field of a record layout, looked up by its plan name once and then
// read straight from the bytes of any record of that kind, as the source
// sends it.
class WireField {
public:
    WireField(RecordKind kind, std::string_view name, ReplySource source);
    // A number; a priority gives its priority byte; 0 for anything else.
    std::int64_t integer(const unsigned char* rec) const;
    // A text without its trailing blanks; "" for anything else.
    std::string text(const unsigned char* rec) const;

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    RecordKind kind_;
    bool depQuery_;
    std::size_t row_ = kNone;  // in the kind's layout; kNone for an unknown name
};

// A job's sj_fname_jname, read as the job's flags say: its script file, a
// user job's real name, or where a long script text is kept.
struct JobScript {
    enum class Form { File, RealName, LongText };
    Form form = Form::File;
    std::string text;  // the file or the name; for a long text, the filler before its place
    std::uint32_t offset = 0;
    std::uint32_t recNum = 0;
};
JobScript job_script(const unsigned char* rec);

// One entry of a schedule's or job's dependency arrays.
struct DependencyEntry {
    int flag;
    std::uint32_t record;
};
// The entries in use (as many as the record counts, at most 40) of a
// schedule or job record, read as the source sends them; none for other
// kinds, or for a job whose union holds something else.
void dependency_entries(const unsigned char* rec, RecordKind kind, ReplySource source,
                        std::vector<DependencyEntry>& out);

// Fixed-width field text without its trailing blanks (and NULs).
std::string trim_field(const unsigned char* p, std::size_t width);

}  // namespace alm
