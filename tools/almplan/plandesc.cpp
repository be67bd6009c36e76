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

    bool do_format(const std::vector<std::string>& w);
    bool do_record(const std::vector<std::string>& w);
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

bool Parser::parse_target(const std::vector<std::string>& w, std::size_t pos, bool allow_units, Target& t,
                          int& default_flag) {
    if (pos >= w.size()) return fail("missing target (sched, job, prompt, localprompt, file, resource, ...)");
    const std::string& kw = w[pos];
    const std::size_t args = w.size() - pos - 1;
    auto need = [&](std::size_t n, const char* form) {
        if (args != n) return fail(std::string("target form is '") + form + "'");
        return true;
    };
    t.line = lineno_;
    default_flag = -1;
    if (kw == "sched" || kw == "schedule") {
        if (!need(2, "sched WORKSTATION SCHEDULE")) return false;
        t.kind = TargetKind::Sched;
        t.key = desc_key(w[pos + 1], w[pos + 2]);
        default_flag = PreschedDep;
    } else if (kw == "job") {
        if (!need(3, "job WORKSTATION SCHEDULE JOB")) return false;
        t.kind = TargetKind::Job;
        t.key = desc_key(w[pos + 1], w[pos + 2], w[pos + 3]);
        default_flag = PrejobDep;
    } else if (kw == "prompt" || kw == "localprompt") {
        if (!need(1, "prompt NAME")) return false;
        t.kind = TargetKind::Prompt;
        t.key = desc_key(w[pos + 1]);
        default_flag = kw == "prompt" ? GlbMsgDep : LocMsgDep;
    } else if (kw == "file") {
        if (!need(2, "file WORKSTATION PATH")) return false;
        t.kind = TargetKind::File;
        t.key = desc_key(w[pos + 1], w[pos + 2]);
        default_flag = FileDep;
    } else if (kw == "resource") {
        if (args != 2 && !(allow_units && args == 3)) {
            return fail(allow_units ? "target form is 'resource WORKSTATION NAME [UNITS]'"
                                    : "target form is 'resource WORKSTATION NAME'");
        }
        std::int64_t units = 1;
        if (args == 3 && (!parse_int(w[pos + 3], units) || units < 1 || units > kMaxUnits)) {
            return fail("resource units must be 1 to " + std::to_string(kMaxUnits) + ", not '" + w[pos + 3] + "'");
        }
        t.kind = TargetKind::Resource;
        t.key = desc_key(w[pos + 1], w[pos + 2]);
        default_flag = 31 + static_cast<int>(units);
    } else if (kw == "workstation") {
        if (!need(1, "workstation NAME")) return false;
        t.kind = TargetKind::Workstation;
        t.key = desc_key(w[pos + 1]);
    } else if (kw == "calendar") {
        if (!need(1, "calendar NAME")) return false;
        t.kind = TargetKind::Calendar;
        t.key = desc_key(w[pos + 1]);
    } else if (kw == "rec") {
        std::int64_t v = 0;
        if (!need(1, "rec NUMBER")) return false;
        if (!parse_int(w[pos + 1], v) || v < 0 || v > 0xFFFFFFFFLL) {
            return fail("bad record number '" + w[pos + 1] + "'");
        }
        t.kind = TargetKind::Raw;
        t.raw = static_cast<std::uint32_t>(v);
    } else {
        return fail("unknown target '" + kw + "'");
    }
    t.shown = kw + " " + joined(w, pos + 1, args);
    return true;
}

bool Parser::do_format(const std::vector<std::string>& w) {
    if (w.size() != 2 || (w[1] != "v1" && w[1] != "v2")) return fail("format is 'format v1' or 'format v2'");
    if (records_started_) return fail("format must come before the first record");
    if (!force_v1_) d_.alm_version = w[1] == "v1" ? 0 : 1;
    return true;
}

bool Parser::do_record(const std::vector<std::string>& w) {
    const std::string& kw = w[0];
    records_started_ = true;
    auto args = [&](std::size_t n, const char* form) {
        if (w.size() != n + 1) return fail(std::string("the form is '") + form + "'");
        return true;
    };
    if (kw == "header") {
        if (!args(0, "header")) return false;
        current_ = 0;
        return true;
    }
    if (kw == "workstation") {
        if (!args(1, "workstation NAME") || !check_name(RecKind::Cpu, "workstation name", w[1])) return false;
        if (!open_record(RecKind::Cpu, desc_key(w[1]), w[1])) return false;
        cur().name = w[1];
        put_text(cur(), "sci_cpu_id", w[1]);
        return true;
    }
    if (kw == "calendar") {
        if (!args(1, "calendar NAME") || !check_name(RecKind::Calendar, "calendar name", w[1])) return false;
        if (!open_record(RecKind::Calendar, desc_key(w[1]), w[1])) return false;
        cur().name = w[1];
        put_text(cur(), "sc_cal_name", w[1]);
        return true;
    }
    if (kw == "prompt") {
        if (!args(1, "prompt NAME") || !check_name(RecKind::Prompt, "prompt name", w[1])) return false;
        if (!open_record(RecKind::Prompt, desc_key(w[1]), w[1])) return false;
        cur().name = w[1];
        put_text(cur(), "sm_msg_name", w[1]);
        return true;
    }
    if (kw == "file") {
        if (!args(2, "file WORKSTATION PATH") || !check_name(RecKind::Cpu, "workstation name", w[1]) ||
            !check_name(RecKind::File, "file name", w[2], true)) {
            return false;
        }
        if (!open_record(RecKind::File, desc_key(w[1], w[2]), w[1] + " " + w[2])) return false;
        cur().ws = w[1];
        cur().name = w[2];
        put_text(cur(), "sf_cpu_id", w[1]);
        put_text(cur(), "sf_file_name", w[2]);
        return true;
    }
    if (kw == "resource") {
        if (!args(2, "resource WORKSTATION NAME") || !check_name(RecKind::Cpu, "workstation name", w[1]) ||
            !check_name(RecKind::Resource, "resource name", w[2])) {
            return false;
        }
        if (!open_record(RecKind::Resource, desc_key(w[1], w[2]), w[1] + " " + w[2])) return false;
        cur().ws = w[1];
        cur().name = w[2];
        put_text(cur(), "sr_cpu_id", w[1]);
        put_text(cur(), "sr_resource_name", w[2]);
        return true;
    }
    if (kw == "schedule") {
        if (!args(2, "schedule WORKSTATION NAME") || !check_name(RecKind::Cpu, "workstation name", w[1]) ||
            !check_name(RecKind::Sched, "schedule name", w[2])) {
            return false;
        }
        if (!open_record(RecKind::Sched, desc_key(w[1], w[2]), w[1] + " " + w[2])) return false;
        Entity& e = cur();
        e.ws = w[1];
        e.name = w[2];
        put_text(e, "ss_cpu_id", w[1]);
        put_text(e, "ss_sched_name", w[2]);
        put_text(e, "ss_orig_sched", w[2]);
        put_number(e, "ss_status", STATE_HOLD);
        put_number(e, "ss_sched_pri.priority", 10);
        put_number(e, "ss_sched_pri.orig_pri", 10);
        last_sched_ = current_;
        return true;
    }
    // job
    if (!args(1, "job NAME") || !check_name(RecKind::Job, "job name", w[1])) return false;
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
