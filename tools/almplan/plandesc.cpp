#include "plandesc.h"

#include <cstring>
#include <utility>

#include "civil.h"
#include "jobstates.h"

namespace alm {
namespace {

constexpr std::size_t kNoSched = static_cast<std::size_t>(-1);
constexpr int kPromptTextMax = 200;  // sm_message then sm_message_more
constexpr int kMaxUnits = 127 - 31;  // resource flag bytes run from 32 to 127

// Per kind: the status field, and the name widths of each version.
struct KindRules {
    const char* status_field;
    int name_width_v2;
    int name_width_v1;
};
constexpr KindRules kRules[REC_KIND_COUNT] = {
    {"sh_status", 0, 0},  {"sci_status", 16, 8}, {"ss_status", 16, 8}, {"sj_status", 40, 8},
    {"sm_status", 8, 8},  {"sf_status", 28, 28}, {"sr_status", 8, 8},  {nullptr, 8, 8},
    {nullptr, 0, 0},
};
constexpr const KindRules& rules(RecKind k) { return kRules[static_cast<int>(k)]; }

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Words separated by blanks; "..." holds blanks, \" and \\ escape; a word
// that starts with # starts a comment.
bool tokenize(std::string_view line, std::vector<std::string>& out, std::string& problem) {
    out.clear();
    std::size_t i = 0;
    while (i < line.size()) {
        if (is_blank(line[i])) {
            ++i;
            continue;
        }
        if (line[i] == '#') break;
        std::string word;
        if (line[i] == '"') {
            ++i;
            bool closed = false;
            while (i < line.size()) {
                const char c = line[i++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c == '\\' && i < line.size()) {
                    word += line[i++];
                    continue;
                }
                word += c;
            }
            if (!closed) {
                problem = "unterminated quoted text";
                return false;
            }
            if (i < line.size() && !is_blank(line[i])) {
                problem = "text right after a closing quote";
                return false;
            }
        } else {
            while (i < line.size() && !is_blank(line[i])) word += line[i++];
        }
        out.push_back(std::move(word));
    }
    return true;
}

// Decimal or 0x-hexadecimal, with an optional sign.
bool parse_int(std::string_view s, std::int64_t& v) {
    bool neg = false;
    if (!s.empty() && (s[0] == '-' || s[0] == '+')) {
        neg = s[0] == '-';
        s.remove_prefix(1);
    }
    int base = 10;
    if (s.size() > 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) {
        base = 16;
        s.remove_prefix(2);
    }
    if (s.empty()) return false;
    std::uint64_t acc = 0;
    for (char c : s) {
        int digit = -1;
        if (c >= '0' && c <= '9') digit = c - '0';
        else if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
        if (digit < 0 || digit >= base) return false;
        acc = acc * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit);
        if (acc > (std::uint64_t{1} << 40)) return false;
    }
    v = neg ? -static_cast<std::int64_t>(acc) : static_cast<std::int64_t>(acc);
    return true;
}

bool looks_like_date(std::string_view s) { return s.size() >= 5 && s[0] >= '0' && s[0] <= '9' && s[4] == '-'; }

std::string joined(const std::vector<std::string>& words, std::size_t from, std::size_t n) {
    std::string s;
    for (std::size_t i = from; i < from + n; ++i) {
        if (!s.empty()) s += ' ';
        s += words[i];
    }
    return s;
}

struct NamedForm;

class Parser {
public:
    Parser(PlanDesc& out, bool force_v1) : d_(out), force_v1_(force_v1) {}

    bool line(int lineno, std::string_view text);
    const std::string& error() const { return err_; }

private:
    struct FieldRef {
        const FieldDesc* field = nullptr;
        int index = 0;
    };

    bool fail(const std::string& problem) {
        err_ = d_.path + ":" + std::to_string(lineno_) + ": " + problem;
        return false;
    }
    Entity& cur() { return d_.entities[current_]; }
    int name_width(RecKind k) const {
        return d_.alm_version != 0 ? rules(k).name_width_v2 : rules(k).name_width_v1;
    }
    void give(Entity& e, const FieldDesc& f, int index) {
        const std::size_t from = f.offset + static_cast<std::size_t>(index) * f.width;
        const std::size_t to = f.type == ValueType::Text ? f.offset + f.size() : from + f.width;
        for (std::size_t b = from; b < to; ++b) e.given.set(b);
    }
    void put_text(Entity& e, const char* field, std::string_view text) {
        store_text(e.rec.bytes, *find_field(e.kind, field), text);
    }
    void put_number(Entity& e, const char* field, std::int64_t v) {
        store_number(e.rec.bytes, *find_field(e.kind, field), 0, v);
    }

    bool check_name(RecKind k, const char* what, const std::string& name, bool blanks_allowed = false);
    bool open_record(RecKind k, std::string key, const std::string& shown);
    bool field_ref(const std::string& token, FieldRef& ref);
    bool parse_target(const std::vector<std::string>& w, std::size_t pos, bool allow_units, Target& t,
                      int& default_flag);
    bool resource_target(const std::vector<std::string>& w, std::size_t pos, bool allow_units, Target& t,
                         int& default_flag);
    bool raw_target(const std::vector<std::string>& w, std::size_t pos, Target& t);

    bool do_format(const std::vector<std::string>& w);
    bool do_record(const std::vector<std::string>& w);
    bool do_named(const NamedForm& form, const std::vector<std::string>& w);
    bool do_job(const std::vector<std::string>& w);
    bool do_set(const std::vector<std::string>& w);
    bool do_status(const std::vector<std::string>& w);
    bool do_text(const std::vector<std::string>& w);
    bool do_dep(const std::vector<std::string>& w);
    bool do_restart(const std::vector<std::string>& w);
    bool do_link(const std::vector<std::string>& w);

    PlanDesc& d_;
    bool force_v1_;
    int lineno_ = 0;
    std::size_t current_ = 0;
    std::size_t last_sched_ = kNoSched;
    bool records_started_ = false;
    std::string err_;
};

bool Parser::check_name(RecKind k, const char* what, const std::string& name, bool blanks_allowed) {
    if (name.empty()) return fail(std::string("empty ") + what);
    if (!blanks_allowed && name.find_first_of(" \t") != std::string::npos) {
        return fail(std::string(what) + " '" + name + "' holds a blank");
    }
    const int width = name_width(k);
    if (static_cast<int>(name.size()) > width) {
        return fail(std::string(what) + " '" + name + "' is longer than " + std::to_string(width) + " bytes");
    }
    return true;
}

bool Parser::open_record(RecKind k, std::string key, const std::string& shown) {
    const std::size_t idx = d_.entities.size();
    auto [it, inserted] = d_.index[static_cast<int>(k)].emplace(std::move(key), idx);
    if (!inserted) {
        return fail(std::string("duplicate ") + kind_word(k) + " '" + shown + "' (first on line " +
                    std::to_string(d_.entities[it->second].line) + ")");
    }
    Entity e;
    e.kind = k;
    e.line = lineno_;
    init_record(k, e.rec);
    d_.entities.push_back(std::move(e));
    current_ = idx;
    return true;
}

bool Parser::field_ref(const std::string& token, FieldRef& ref) {
    const std::size_t lb = token.find('[');
    const std::string name = token.substr(0, lb);
    int index = -1;
    if (lb != std::string::npos) {
        std::int64_t v = 0;
        if (token.back() != ']' || !parse_int(std::string_view(token).substr(lb + 1, token.size() - lb - 2), v) ||
            v < 0 || v > 0xFFFF) {
            return fail("bad field '" + token + "'");
        }
        index = static_cast<int>(v);
    }
    const RecKind k = cur().kind;
    const FieldDesc* f = find_field(k, name);
    if (f == nullptr) {
        if (auto other = kind_having_field(name, k)) {
            return fail("field '" + name + "' belongs to a " + kind_word(*other) + " record, not to a " +
                        kind_word(k) + " record");
        }
        return fail("unknown field '" + name + "'");
    }
    if (f->count > 1) {
        if (index < 0) {
            return fail("field '" + name + "' has " + std::to_string(f->count) + " elements: give an index, as in " +
                        name + "[0]");
        }
        if (index >= f->count) {
            return fail("index " + std::to_string(index) + " is out of range for field '" + name + "' (" +
                        std::to_string(f->count) + " elements)");
        }
    } else if (index > 0) {
        return fail("field '" + name + "' is not an array");
    }
    ref.field = f;
    ref.index = index < 0 ? 0 : index;
    return true;
}

// Targets named by words alone: the keyword, its number of words, the form
// shown in errors and the dependency flag a dependency on it gets by default.
struct TargetForm {
    const char* keyword;
    std::size_t args;
    const char* form;
    TargetKind kind;
    int flag;
};
constexpr TargetForm kTargetForms[] = {
    {"sched", 2, "sched WORKSTATION SCHEDULE", TargetKind::Sched, PreschedDep},
    {"schedule", 2, "sched WORKSTATION SCHEDULE", TargetKind::Sched, PreschedDep},
    {"job", 3, "job WORKSTATION SCHEDULE JOB", TargetKind::Job, PrejobDep},
    {"prompt", 1, "prompt NAME", TargetKind::Prompt, GlbMsgDep},
    {"localprompt", 1, "prompt NAME", TargetKind::Prompt, LocMsgDep},
    {"file", 2, "file WORKSTATION PATH", TargetKind::File, FileDep},
    {"workstation", 1, "workstation NAME", TargetKind::Workstation, -1},
    {"calendar", 1, "calendar NAME", TargetKind::Calendar, -1},
};

// The identity key of the record named by the n words after pos.
std::string target_key(const std::vector<std::string>& w, std::size_t pos, std::size_t n) {
    return desc_key(w[pos + 1], n >= 2 ? std::string_view(w[pos + 2]) : std::string_view{},
                    n >= 3 ? std::string_view(w[pos + 3]) : std::string_view{});
}

bool Parser::parse_target(const std::vector<std::string>& w, std::size_t pos, bool allow_units, Target& t,
                          int& default_flag) {
    if (pos >= w.size()) return fail("missing target (sched, job, prompt, localprompt, file, resource, ...)");
    const std::string& kw = w[pos];
    const std::size_t args = w.size() - pos - 1;
    t.line = lineno_;
    default_flag = -1;
    const TargetForm* form = nullptr;
    for (const TargetForm& f : kTargetForms)
        if (kw == f.keyword) form = &f;
    if (form != nullptr) {
        if (args != form->args) return fail(std::string("target form is '") + form->form + "'");
        t.kind = form->kind;
        t.key = target_key(w, pos, args);
        default_flag = form->flag;
    } else if (kw == "resource") {
        if (!resource_target(w, pos, allow_units, t, default_flag)) return false;
    } else if (kw == "rec") {
        if (!raw_target(w, pos, t)) return false;
    } else {
        return fail("unknown target '" + kw + "'");
    }
    t.shown = kw + " " + joined(w, pos + 1, args);
    return true;
}

// A resource, and in a dependency the units it takes (flag 32 for one unit).
bool Parser::resource_target(const std::vector<std::string>& w, std::size_t pos, bool allow_units, Target& t,
                             int& default_flag) {
    const std::size_t args = w.size() - pos - 1;
    if (args != 2 && !(allow_units && args == 3)) {
        return fail(allow_units ? "target form is 'resource WORKSTATION NAME [UNITS]'"
                                : "target form is 'resource WORKSTATION NAME'");
    }
    std::int64_t units = 1;
    if (args == 3 && (!parse_int(w[pos + 3], units) || units < 1 || units > kMaxUnits)) {
        return fail("resource units must be 1 to " + std::to_string(kMaxUnits) + ", not '" + w[pos + 3] + "'");
    }
    t.kind = TargetKind::Resource;
    t.key = target_key(w, pos, 2);
    default_flag = 31 + static_cast<int>(units);
    return true;
}

bool Parser::raw_target(const std::vector<std::string>& w, std::size_t pos, Target& t) {
    std::int64_t v = 0;
    if (w.size() - pos - 1 != 1) return fail("target form is 'rec NUMBER'");
    if (!parse_int(w[pos + 1], v) || v < 0 || v > 0xFFFFFFFFLL) {
        return fail("bad record number '" + w[pos + 1] + "'");
    }
    t.kind = TargetKind::Raw;
    t.raw = static_cast<std::uint32_t>(v);
    return true;
}

bool Parser::do_format(const std::vector<std::string>& w) {
    if (w.size() != 2 || (w[1] != "v1" && w[1] != "v2")) return fail("format is 'format v1' or 'format v2'");
    if (records_started_) return fail("format must come before the first record");
    if (!force_v1_) d_.alm_version = w[1] == "v1" ? 0 : 1;
    return true;
}

// Records named by one word, or by a workstation and a name: the form shown
// in errors, what the name is called, and the fields the words go into.
struct NamedForm {
    const char* keyword;
    RecKind kind;
    const char* form;
    const char* what;
    const char* ws_field;  // null when one word names the record
    const char* name_field;
    bool blanks_allowed;
};
constexpr NamedForm kNamedForms[] = {
    {"workstation", RecKind::Cpu, "workstation NAME", "workstation name", nullptr, "sci_cpu_id", false},
    {"calendar", RecKind::Calendar, "calendar NAME", "calendar name", nullptr, "sc_cal_name", false},
    {"prompt", RecKind::Prompt, "prompt NAME", "prompt name", nullptr, "sm_msg_name", false},
    {"file", RecKind::File, "file WORKSTATION PATH", "file name", "sf_cpu_id", "sf_file_name", true},
    {"resource", RecKind::Resource, "resource WORKSTATION NAME", "resource name", "sr_cpu_id", "sr_resource_name",
     false},
    {"schedule", RecKind::Sched, "schedule WORKSTATION NAME", "schedule name", "ss_cpu_id", "ss_sched_name", false},
};

bool Parser::do_record(const std::vector<std::string>& w) {
    const std::string& kw = w[0];
    records_started_ = true;
    if (kw == "header") {
        if (w.size() != 1) return fail("the form is 'header'");
        current_ = 0;
        return true;
    }
    for (const NamedForm& form : kNamedForms) {
        if (kw != form.keyword) continue;
        if (!do_named(form, w)) return false;
        if (form.kind != RecKind::Sched) return true;
        // A new schedule is held, at the usual priority, under its own name.
        Entity& e = cur();
        put_text(e, "ss_orig_sched", w[2]);
        put_number(e, "ss_status", STATE_HOLD);
        put_number(e, "ss_sched_pri.priority", 10);
        put_number(e, "ss_sched_pri.orig_pri", 10);
        last_sched_ = current_;
        return true;
    }
    return do_job(w);
}

bool Parser::do_named(const NamedForm& form, const std::vector<std::string>& w) {
    const bool by_ws = form.ws_field != nullptr;
    if (w.size() != (by_ws ? 3u : 2u)) return fail(std::string("the form is '") + form.form + "'");
    if (by_ws && !check_name(RecKind::Cpu, "workstation name", w[1])) return false;
    const std::string& name = w[by_ws ? 2 : 1];
    if (!check_name(form.kind, form.what, name, form.blanks_allowed)) return false;
    const std::string key = by_ws ? desc_key(w[1], name) : desc_key(name);
    if (!open_record(form.kind, key, by_ws ? w[1] + " " + name : name)) return false;
    Entity& e = cur();
    e.name = name;
    if (by_ws) {
        e.ws = w[1];
        put_text(e, form.ws_field, w[1]);
    }
    put_text(e, form.name_field, name);
    return true;
}

// A job belongs to the schedule described last.
bool Parser::do_job(const std::vector<std::string>& w) {
    if (w.size() != 2) return fail("the form is 'job NAME'");
    if (!check_name(RecKind::Job, "job name", w[1])) return false;
    if (last_sched_ == kNoSched) return fail("job '" + w[1] + "' comes before any schedule");
    const std::size_t sched = last_sched_;
    const std::string ws = d_.entities[sched].ws;
    const std::string sname = d_.entities[sched].name;
    if (!open_record(RecKind::Job, desc_key(ws, sname, w[1]), ws + " " + sname + " " + w[1])) return false;
    Entity& e = cur();
    e.ws = ws;
    e.sched_name = sname;
    e.name = w[1];
    e.sched = sched;
    d_.entities[sched].jobs.push_back(current_);
    put_text(e, "sj_cpu_id", ws);
    put_text(e, "sj_schedule", sname);
    put_text(e, "sj_job_name", w[1]);
    put_number(e, "sj_status", STATE_HOLD);
    put_number(e, "sj_job_pri.priority", 10);
    put_number(e, "sj_job_pri.orig_pri", 10);
    return true;
}

bool Parser::do_set(const std::vector<std::string>& w) {
    if (w.size() < 3) return fail("the form is 'set FIELD VALUE'");
    FieldRef ref;
    if (!field_ref(w[1], ref)) return false;
    Entity& e = cur();
    const FieldDesc& f = *ref.field;
    if (f.type == ValueType::Text) {
        if (w.size() != 3) return fail("text for field '" + w[1] + "' must be one word or quoted");
        if (w[2].size() > f.width) {
            return fail("text for field '" + w[1] + "' is longer than " + std::to_string(f.width) + " bytes");
        }
        store_text(e.rec.bytes, f, w[2]);
        give(e, f, 0);
        return true;
    }
    const FieldSpec* df = find_date_field(e.kind, f.name);
    if (df != nullptr && looks_like_date(w[2])) {
        CivilDate date{};
        if (!parse_civil_date(w[2], date)) return fail("bad date '" + w[2] + "' (YYYY-MM-DD, 1971 to 2037)");
        if (w.size() > 4) return fail("the form is 'set " + w[1] + " YYYY-MM-DD [HH:MM]'");
        store_number(e.rec.bytes, f, 0, day_epoch(date));
        give(e, f, 0);
        if (w.size() == 4) {
            std::int16_t hhmm = 0;
            if (!parse_hhmm(w[3], hhmm)) return fail("bad time of day '" + w[3] + "' (HH:MM)");
            if (df->time == nullptr) return fail("field '" + w[1] + "' has no time of day");
            const FieldDesc& tf = *find_field(e.kind, df->time);
            store_number(e.rec.bytes, tf, 0, hhmm);
            give(e, tf, 0);
        }
        return true;
    }
    if (w.size() != 3) return fail("too many values for field '" + w[1] + "'");
    std::int64_t v = 0;
    if (!parse_int(w[2], v)) return fail("bad number '" + w[2] + "' for field '" + w[1] + "'");
    if (!number_fits(f, v)) {
        return fail("value " + w[2] + " does not fit field '" + w[1] + "' (" + std::to_string(f.width) + " bytes)");
    }
    store_number(e.rec.bytes, f, ref.index, v);
    give(e, f, ref.index);
    return true;
}

bool Parser::do_status(const std::vector<std::string>& w) {
    if (w.size() != 2) return fail("the form is 'status WORD' or 'status NUMBER'");
    Entity& e = cur();
    const char* name = rules(e.kind).status_field;
    if (name == nullptr) return fail(std::string("a ") + kind_word(e.kind) + " record has no status");
    std::int64_t v = 0;
    if (const JobState* s = find_state(w[1])) {
        v = s->code;
    } else if (!parse_int(w[1], v) || v < -32768 || v > 65535) {
        return fail("unknown status '" + w[1] + "'");
    }
    const FieldDesc& f = *find_field(e.kind, name);
    store_number(e.rec.bytes, f, 0, v);
    give(e, f, 0);
    return true;
}

bool Parser::do_text(const std::vector<std::string>& w) {
    Entity& e = cur();
    if (e.kind != RecKind::Prompt) return fail("only a prompt has a text");
    if (w.size() != 2) return fail("the form is 'text \"PROMPT TEXT\"'");
    if (w[1].size() > kPromptTextMax) {
        return fail("prompt text is longer than " + std::to_string(kPromptTextMax) + " bytes");
    }
    const FieldDesc& first = *find_field(e.kind, "sm_message");
    const FieldDesc& more = *find_field(e.kind, "sm_message_more");
    const std::string_view text = w[1];
    store_text(e.rec.bytes, first, text.substr(0, first.width));
    store_text(e.rec.bytes, more, text.size() > first.width ? text.substr(first.width) : std::string_view{});
    give(e, first, 0);
    give(e, more, 0);
    return true;
}

bool Parser::do_dep(const std::vector<std::string>& w) {
    Entity& e = cur();
    if (e.kind != RecKind::Sched && e.kind != RecKind::Job) {
        return fail(std::string("a ") + kind_word(e.kind) + " record has no dependencies");
    }
    std::size_t pos = 1;
    int flag = -1;
    if (w.size() > 1 && !w[1].empty() && w[1][0] >= '0' && w[1][0] <= '9') {
        std::int64_t v = 0;
        if (!parse_int(w[1], v) || v < 0 || v > 255) return fail("bad flag byte '" + w[1] + "' (0 to 255)");
        flag = static_cast<int>(v);
        pos = 2;
    }
    Target t;
    int default_flag = -1;
    if (!parse_target(w, pos, true, t, default_flag)) return false;
    if (flag < 0) flag = default_flag;
    if (flag < 0) return fail("a dependency on '" + t.shown + "' needs a flag byte, as in 'dep 0x83 " + t.shown + "'");
    if (e.deps.size() >= MAX_DEPENDS) return fail("more than " + std::to_string(MAX_DEPENDS) + " dependencies");
    e.deps.push_back(DepSpec{static_cast<std::uint8_t>(flag), std::move(t)});
    return true;
}

bool Parser::do_restart(const std::vector<std::string>& w) {
    Entity& e = cur();
    if (e.kind != RecKind::Job) return fail("only a job has a restart chain");
    Target t;
    t.kind = TargetKind::Job;
    t.line = lineno_;
    if (w.size() == 2) {
        t.key = desc_key(e.ws, e.sched_name, w[1]);
        t.shown = "job " + e.ws + " " + e.sched_name + " " + w[1];
    } else if (w.size() == 4) {
        t.key = desc_key(w[1], w[2], w[3]);
        t.shown = "job " + joined(w, 1, 3);
    } else {
        return fail("the form is 'restart JOB' or 'restart WORKSTATION SCHEDULE JOB'");
    }
    e.links.push_back(LinkSpec{find_field(RecKind::Job, "sj_restart_ptr"), 0, std::move(t)});
    return true;
}

bool Parser::do_link(const std::vector<std::string>& w) {
    if (w.size() < 3) return fail("the form is 'link FIELD TARGET'");
    FieldRef ref;
    if (!field_ref(w[1], ref)) return false;
    if (ref.field->type == ValueType::Text) return fail("field '" + w[1] + "' holds text, not a record number");
    Target t;
    int unused = 0;
    if (!parse_target(w, 2, false, t, unused)) return false;
    cur().links.push_back(LinkSpec{ref.field, ref.index, std::move(t)});
    return true;
}

bool Parser::line(int lineno, std::string_view text) {
    lineno_ = lineno;
    std::vector<std::string> w;
    std::string problem;
    if (!tokenize(text, w, problem)) return fail(problem);
    if (w.empty()) return true;
    const std::string& kw = w[0];
    if (kw == "format") return do_format(w);
    if (kw == "header" || kw == "workstation" || kw == "calendar" || kw == "prompt" || kw == "file" ||
        kw == "resource" || kw == "schedule" || kw == "job") {
        return do_record(w);
    }
    if (kw == "set") return do_set(w);
    if (kw == "status") return do_status(w);
    if (kw == "text") return do_text(w);
    if (kw == "dep") return do_dep(w);
    if (kw == "restart") return do_restart(w);
    if (kw == "link") return do_link(w);
    return fail("unknown keyword '" + kw + "'");
}

}  // namespace

std::string desc_key(std::string_view a, std::string_view b, std::string_view c) {
    std::string k(a);
    k += '\0';
    k += b;
    k += '\0';
    k += c;
    return k;
}

RecKind target_record_kind(TargetKind k) {
    switch (k) {
    case TargetKind::Workstation: return RecKind::Cpu;
    case TargetKind::Sched: return RecKind::Sched;
    case TargetKind::Job: return RecKind::Job;
    case TargetKind::Prompt: return RecKind::Prompt;
    case TargetKind::File: return RecKind::File;
    case TargetKind::Resource: return RecKind::Resource;
    case TargetKind::Calendar: return RecKind::Calendar;
    case TargetKind::Raw: break;
    }
    return RecKind::Header;
}

bool parse_description(const std::string& path, std::string_view text, bool force_v1, PlanDesc& out,
                       std::string& err) {
    out = PlanDesc{};
    out.path = path;
    out.alm_version = force_v1 ? 0 : 1;
    Entity header;
    header.kind = RecKind::Header;
    header.line = 0;
    init_record(RecKind::Header, header.rec);
    out.entities.push_back(std::move(header));

    Parser parser(out, force_v1);
    int lineno = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        ++lineno;
        if (text.substr(start, end - start).find('\0') != std::string_view::npos) {
            err = path + ":" + std::to_string(lineno) + ": NUL byte in the line";
            return false;
        }
        if (!parser.line(lineno, text.substr(start, end - start))) {
            err = parser.error();
            return false;
        }
        start = end + 1;
    }
    return true;
}

}  // namespace alm
