#include "wirerecord.h"

#include <algorithm>
#include <span>

#include "plan/almrecs.h"
#include "util/endian.h"

namespace alm {
namespace {

// The plan library's table of the kind's fields; how each is sent is a
// column of it, one per reply.
std::span<const FieldSpec> layout(RecordKind kind) {
    switch (kind) {
        case RecordKind::Workstation: return kWorkstationFields;
        case RecordKind::Schedule:
        case RecordKind::SchedDep: return kScheduleFields;
        case RecordKind::Job:
        case RecordKind::JobDep: return kJobFields;
        case RecordKind::Prompt: return kPromptFields;
        case RecordKind::File: return kFileFields;
        case RecordKind::Resource: return kResourceFields;
        case RecordKind::Unknown: break;
    }
    return {};
}

ReplyForm reply_of(ReplySource source) { return source == ReplySource::DepQuery ? ReplyForm::deps : ReplyForm::query; }

std::int64_t sign16(std::uint16_t v, bool sign) {
    return sign ? std::int64_t{static_cast<std::int16_t>(v)} : std::int64_t{v};
}
std::int64_t sign32(std::uint32_t v, bool sign) {
    return sign ? std::int64_t{static_cast<std::int32_t>(v)} : std::int64_t{v};
}

std::int64_t read_number(const unsigned char* p, FieldType type, Wire wire) {
    const bool sign = is_signed(type);
    const int width = element_width(type);
    if (width == 1) return p[0];
    switch (wire) {
        case Wire::big_endian:
            return width == 2 ? sign16(load_be16(p), sign) : sign32(load_be32(p), sign);
        case Wire::low_half:
            return sign16(load_be16(p), sign);
        case Wire::low_half_twice:
            return sign16(load_le16(p), sign);
        case Wire::none:
        case Wire::as_delivered:
        case Wire::dep_entries:
            break;
    }
    return width == 2 ? sign16(load_le16(p), sign) : sign32(load_le32(p), sign);
}

// A dependency count as the server bounds it before converting entries.
int dep_count(std::int64_t stored) {
    return static_cast<int>(std::clamp<std::int64_t>(stored, 0, MAX_DEPENDS));
}

// Item i of an array; in dependency entries the first lowHalfCount items
// are in low half form, the rest as delivered.
std::int64_t read_item(const unsigned char* p, FieldType type, Wire wire, int lowHalfCount, std::size_t i) {
    if (wire == Wire::dep_entries) {
        wire = static_cast<int>(i) < lowHalfCount ? Wire::low_half : Wire::as_delivered;
    }
    return read_number(p + i * static_cast<std::size_t>(element_width(type)), type, wire);
}

struct JobContext {
    std::uint16_t flags = 0;
    std::uint16_t flags2 = 0;
    std::uint16_t reFlags = 0;
    std::int16_t numDepends = 0;
};

JobContext job_context(const unsigned char* rec) {
    JobContext job;
    job.flags = load_be16(rec + offsetof(SJ_RECTYPE, sj_flags));
    job.flags2 = load_be16(rec + offsetof(SJ_RECTYPE, sj_flags2));
    job.reFlags = load_be16(rec + offsetof(SJ_RECTYPE, sj_re_flags));
    job.numDepends = static_cast<std::int16_t>(load_be16(rec + offsetof(SJ_RECTYPE, sj_num_depends)));
    return job;
}

JobScript::Form script_form(const JobContext& job) {
    if (flag_set(job.flags2, sjf2_long_jcl)) return JobScript::Form::LongText;
    if (flag_set(job.flags, sjf1_user_job) || flag_set(job.flags2, sjf2_alias)) return JobScript::Form::RealName;
    return JobScript::Form::File;
}

// What the subdep union of a job holds: a recovery job's target (count -1),
// an external job's identity, or the dependency arrays.
Variant subdep_variant(const JobContext& job) {
    if (job.numDepends == -1) return Variant::submit;
    if (flag_set(job.reFlags, sjrf_external)) return Variant::external;
    return Variant::deps;
}

// The member of a job's union that its flags say is in use.
Variant variant_in_use(const unsigned char* rec, const FieldSpec& group) {
    const JobContext job = job_context(rec);
    if (group.v2.off == offsetof(SJ_RECTYPE, subdep)) return subdep_variant(job);
    switch (script_form(job)) {
        case JobScript::Form::LongText: return Variant::long_jcl;
        case JobScript::Form::RealName: return Variant::alias;
        case JobScript::Form::File: break;
    }
    return Variant::jcl_file;
}

constexpr std::size_t kSubdepFlags = offsetof(SJ_RECTYPE, subdep) + offsetof(SJ_SUBDEP, deps.sj_depend_flags);
constexpr std::size_t kSubdepRecords = offsetof(SJ_RECTYPE, subdep) + offsetof(SJ_SUBDEP, deps.sj_dependencies);

// The record's dependency count, for entries sent in low half form.
int depends_of(const unsigned char* rec, const FieldSpec& f) {
    if (f.v2.off == offsetof(SS_RECTYPE, ss_dependencies))
        return dep_count(static_cast<std::int16_t>(load_be16(rec + offsetof(SS_RECTYPE, ss_num_depends))));
    return dep_count(job_context(rec).numDepends);
}

// A row's value: a number, an array, a text, or for a number with other
// readings (the file's timer) an object of those readings.
void write_value(const unsigned char* rec, std::span<const FieldSpec> rows, ReplyForm reply, JsonWriter& w);

void write_number_or_readings(const unsigned char* rec, std::span<const FieldSpec> rows, ReplyForm reply, JsonWriter& w) {
    const FieldSpec& f = rows.front();
    const auto views = rows.subspan(1);
    const bool same = std::all_of(views.begin(), views.end(), [&](const FieldSpec& v) { return v.v2.type == f.v2.type; });
    if (views.empty() || same) {
        w.integer(read_number(rec + f.v2.off, f.v2.type, f.wire(reply)));
        return;
    }
    w.beginObject();
    for (const FieldSpec& v : views) {
        w.key(v.name);
        w.integer(read_number(rec + v.v2.off, v.v2.type, v.wire(reply)));
    }
    w.endObject();
}

// Members of a group under their own names: "ss_sched_pri.priority" is
// "priority" inside ss_sched_pri, "jcl_loc.st_offset" is st_offset inside
// an object jcl_loc.
void write_members(const unsigned char* rec, const FieldSpec& group, std::span<const FieldSpec> rows, ReplyForm reply,
                   JsonWriter& w) {
    const Variant chosen = group.variant == Variant::by_flags ? variant_in_use(rec, group) : Variant::any;
    const std::string prefix = std::string(group.name) + ".";
    std::string open;  // the nested object now open, if any
    w.beginObject();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].variant != chosen) continue;
        std::string_view name = rows[i].name;
        if (name.starts_with(prefix)) name.remove_prefix(prefix.size());
        const std::size_t dot = name.find('.');
        const std::string outer(dot == std::string_view::npos ? std::string_view{} : name.substr(0, dot));
        if (outer != open) {
            if (!open.empty()) w.endObject();
            if (!outer.empty()) {
                w.key(outer);
                w.beginObject();
            }
            open = outer;
        }
        w.key(dot == std::string_view::npos ? name : name.substr(dot + 1));
        write_value(rec, rows.subspan(i, 1), reply, w);
    }
    if (!open.empty()) w.endObject();
    w.endObject();
}

void write_value(const unsigned char* rec, std::span<const FieldSpec> rows, ReplyForm reply, JsonWriter& w) {
    const FieldSpec& f = rows.front();
    const unsigned char* p = rec + f.v2.off;
    if (f.is_group()) {
        write_members(rec, f, rows.subspan(1), reply, w);
    } else if (f.v2.type == FieldType::text) {
        w.string(trim_field(p, f.v2.size));
    } else if (f.count() == 1) {
        write_number_or_readings(rec, rows, reply, w);
    } else {
        const Wire wire = f.wire(reply);
        const int lowHalf = wire == Wire::dep_entries ? depends_of(rec, f) : 0;
        w.beginArray();
        for (int i = 0; i < f.count(); ++i) w.integer(read_item(p, f.v2.type, wire, lowHalf, static_cast<std::size_t>(i)));
        w.endArray();
    }
}

// A top row with the members and views that follow it.
std::size_t rows_of(std::span<const FieldSpec> fields, std::size_t top) {
    std::size_t n = 1;
    while (top + n < fields.size() && fields[top + n].part != Part::top) ++n;
    return n;
}

}  // namespace

std::uint16_t record_type_code(const unsigned char* rec) { return load_be16(rec); }

RecordKind kind_of_record(const unsigned char* rec) {
    const std::uint16_t code = record_type_code(rec);
    if (code == static_cast<std::uint16_t>(SCI_CODE)) return RecordKind::Workstation;
    if (code == static_cast<std::uint16_t>(SS_CODE)) return RecordKind::Schedule;
    if (code == static_cast<std::uint16_t>(SJ_CODE)) return RecordKind::Job;
    if (code == SCHED_DEP_CODE) return RecordKind::SchedDep;
    if (code == JOB_DEP_CODE) return RecordKind::JobDep;
    if (code == static_cast<std::uint16_t>(SM_CODE)) return RecordKind::Prompt;
    if (code == static_cast<std::uint16_t>(SF_CODE)) return RecordKind::File;
    if (code == static_cast<std::uint16_t>(SR_CODE)) return RecordKind::Resource;
    return RecordKind::Unknown;
}

const char* record_kind_name(RecordKind kind) {
    switch (kind) {
        case RecordKind::Workstation: return "workstation";
        case RecordKind::Schedule: return "schedule";
        case RecordKind::Job: return "job";
        case RecordKind::SchedDep: return "schedule";
        case RecordKind::JobDep: return "job";
        case RecordKind::Prompt: return "prompt";
        case RecordKind::File: return "file";
        case RecordKind::Resource: return "resource";
        case RecordKind::Unknown: break;
    }
    return "unknown";
}

void write_record_json(const unsigned char* rec, RecordKind kind, ReplySource source, JsonWriter& w) {
    const std::span<const FieldSpec> fields = layout(kind);
    if (fields.empty()) {
        w.member("alm_rec_type", record_type_code(rec));
        return;
    }
    for (std::size_t i = 0; i < fields.size(); i += rows_of(fields, i)) {
        w.key(fields[i].name);
        write_value(rec, fields.subspan(i, rows_of(fields, i)), reply_of(source), w);
    }
}

WireField::WireField(RecordKind kind, std::string_view name, ReplySource source)
    : kind_(kind), depQuery_(source == ReplySource::DepQuery) {
    const std::span<const FieldSpec> fields = layout(kind);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].part == Part::top && fields[i].name == name) row_ = i;
    }
}

std::int64_t WireField::integer(const unsigned char* rec) const {
    if (row_ == kNone) return 0;
    const std::span<const FieldSpec> fields = layout(kind_);
    // A group of small numbers (a priority) reads as its first member.
    const FieldSpec& f = fields[row_].is_group() && row_ + 1 < fields.size() ? fields[row_ + 1] : fields[row_];
    if (!is_number(f.v2.type) || f.count() != 1) return 0;
    return read_number(rec + f.v2.off, f.v2.type, f.wire(depQuery_ ? ReplyForm::deps : ReplyForm::query));
}

std::string WireField::text(const unsigned char* rec) const {
    if (row_ == kNone) return {};
    const FieldSpec& f = layout(kind_)[row_];
    return f.v2.type == FieldType::text ? trim_field(rec + f.v2.off, f.v2.size) : std::string();
}

JobScript job_script(const unsigned char* rec) {
    const unsigned char* p = rec + offsetof(SJ_RECTYPE, sj_fname_jname);
    JobScript script;
    script.form = script_form(job_context(rec));
    switch (script.form) {
        case JobScript::Form::LongText: {
            const std::size_t loc = offsetof(SJ_FNAME_JNAME, jcl_string.jcl_loc);
            script.text = trim_field(p, loc);
            script.offset = load_le32(p + loc);
            script.recNum = load_le32(p + loc + 4);
            break;
        }
        case JobScript::Form::RealName: script.text = trim_field(p, sizeof(SJ_FNAME_JNAME::userjob.real_name)); break;
        case JobScript::Form::File: script.text = trim_field(p, sizeof(SJ_FNAME_JNAME::jcl_file)); break;
    }
    return script;
}

void dependency_entries(const unsigned char* rec, RecordKind kind, ReplySource source,
                        std::vector<DependencyEntry>& out) {
    out.clear();
    const Wire wire = source == ReplySource::DepQuery ? Wire::dep_entries : Wire::as_delivered;
    const unsigned char* flags = nullptr;
    const unsigned char* records = nullptr;
    int count = 0;
    if (kind == RecordKind::Schedule) {
        flags = rec + offsetof(SS_RECTYPE, ss_depend_flags);
        records = rec + offsetof(SS_RECTYPE, ss_dependencies);
        count = depends_of(rec, *find_spec(kScheduleFields, "ss_dependencies"));
    } else if (kind == RecordKind::Job) {
        const JobContext job = job_context(rec);
        if (subdep_variant(job) != Variant::deps) return;
        flags = rec + kSubdepFlags;
        records = rec + kSubdepRecords;
        count = dep_count(job.numDepends);
    }
    const int lowHalf = wire == Wire::dep_entries ? count : 0;
    for (int i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        out.push_back({flags[at], static_cast<std::uint32_t>(read_item(records, FieldType::u32, wire, lowHalf, at))});
    }
}

std::string trim_field(const unsigned char* p, std::size_t width) {
    std::size_t n = width;
    while (n > 0 && (p[n - 1] == ' ' || p[n - 1] == '\0')) --n;
    return std::string(reinterpret_cast<const char*>(p), n);
}

}  // namespace alm
