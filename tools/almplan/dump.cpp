// `almplan dump PLAN [--json]`: every record of a plan, read through the plan
// library, one line per record: kind, number, names, status, chains, dates
// (local date and time), flags by name and dependencies. With --json each
// line is a JSON object instead.
#include "dump.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <span>
#include <string_view>
#include <vector>

#include "check.h"
#include "jobstates.h"
#include "plan/almaccs.h"
#include "plan/almforms_v1.h"
#include "plan/almrecs.h"
#include "util/endian.h"

namespace alm {

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

constexpr const char* kDepNames[] = {
    "ScDummyZero", "LocMsgDep", "GlbMsgDep", "PreschedDep", "PrejobDep", "RestType",
    "RstrMsgDep", "Satisfied", "FileDep", "ResourceDep", "NondepDep",
};

struct KindName {
    std::int16_t code;
    const char* name;
};
constexpr KindName kKinds[] = {
    {SH_CODE, "header"}, {SCI_CODE, "workstation"}, {SS_CODE, "schedule"}, {SJ_CODE, "job"},
    {SM_CODE, "prompt"}, {SF_CODE, "file"}, {SR_CODE, "resource"}, {SC_CODE, "calendar"},
    {ST_CODE, "string"}, {SD_CODE, "dependency"}, {PJ_CODE, "purgeable-jobs"},
};

const char* kind_name(std::int16_t code) {
    for (const KindName& k : kKinds)
        if (k.code == code) return k.name;
    return "unknown";
}

// The two code bytes in file order ("RH" for the header).
std::string code_text(std::int16_t code) {
    std::string s;
    for (unsigned char c : {static_cast<unsigned char>(code & 0xFF),
                            static_cast<unsigned char>(static_cast<std::uint16_t>(code) >> 8)}) {
        if (c >= 0x20 && c < 0x7F) {
            s += static_cast<char>(c);
        } else {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\x%02X", c);
            s += buf;
        }
    }
    return s;
}

std::string_view trimmed(const char* field, std::size_t width) {
    std::size_t n = 0;
    while (n < width && field[n] != '\0') ++n;
    while (n > 0 && (field[n - 1] == ' ' || field[n - 1] == '\t')) --n;
    return {field, n};
}

// One record as key/value pairs, in either output form.
class Line {
public:
    explicit Line(bool json) : json_(json) {}

    void begin(std::uint32_t recnum, std::int16_t code) {
        out_.clear();
        first_ = true;
        if (json_) {
            out_ += "{\"rec\":" + std::to_string(recnum);
            first_ = false;
            text("kind", kind_name(code));
            text("code", code_text(code));
        } else {
            out_ += '#';
            out_ += std::to_string(recnum);
            out_ += ' ';
            out_ += kind_name(code);
            out_ += ' ';
            out_ += code_text(code);
        }
    }
    std::string end() {
        out_ += json_ ? "}\n" : "\n";
        return out_;
    }

    void text(const char* key, std::string_view value) {
        key_(key);
        quoted(value);
    }
    void field(const char* key, const char* f, std::size_t width) { text(key, trimmed(f, width)); }
    void number(const char* key, long long v) {
        key_(key);
        out_ += std::to_string(v);
    }
    // A record number: null shows as null / "-".
    void link(const char* key, std::uint32_t recnum) {
        key_(key);
        if (recnum == NULL_REC)
            out_ += json_ ? "null" : "-";
        else
            out_ += std::to_string(recnum);
    }
    void status(std::int16_t code) {
        const JobState* st = state_of_code(code);
        if (st != nullptr) {
            text("status", st->word);
        } else {
            number("status", code);
        }
    }
    // A day epoch and its time of day as local date and time; hhmm < 0 for
    // a date without time.
    void date(const char* key, std::int32_t day, int hhmm) {
        key_(key);
        if (day == 0 || day == 32768 || day == -32768) {
            out_ += json_ ? "null" : "-";
            return;
        }
        std::time_t t = day;
        std::tm tm{};
        char buf[40];
        if (::gmtime_r(&t, &tm) == nullptr) {
            std::snprintf(buf, sizeof buf, "%" PRId32, day);
        } else if (hhmm >= 0) {
            if (hhmm == 32768) hhmm = 0;
            std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday,
                          (hhmm / 100) % 100, hhmm % 100);
        } else {
            std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday);
        }
        quoted(buf);
    }
    void flags(const char* key, unsigned word, std::span<const FlagName> names) {
        key_(key);
        out_ += json_ ? "[" : "";
        bool any = false;
        unsigned known = 0;
        for (const FlagName& f : names) {
            known |= 1u << f.bit;
            if (!flag_set(word, f.bit)) continue;
            if (any) out_ += ",";
            any = true;
            if (json_)
                quoted(f.name);
            else
                out_ += f.name;
        }
        for (int bit = 0; bit < 16; ++bit) {
            if ((known >> bit) & 1u || !flag_set(word, bit)) continue;
            if (any) out_ += ",";
            any = true;
            std::string n = "bit" + std::to_string(bit);
            if (json_)
                quoted(n);
            else
                out_ += n;
        }
        if (json_)
            out_ += "]";
        else if (!any)
            out_ += "-";
    }
    // Dependency arrays: kind by flag byte, and the record pointed at.
    template <class Rec>
    void deps(int count, const std::uint8_t* flags, const Rec* recs) {
        key_("deps");
        if (count < 0) count = 0;
        if (count > MAX_DEPENDS) count = MAX_DEPENDS;
        out_ += json_ ? "[" : "";
        for (int i = 0; i < count; ++i) {
            if (i > 0) out_ += json_ ? "," : ",";
            std::string kind = dep_kind(flags[i]);
            std::uint32_t rec = recs[i];
            if (json_) {
                out_ += "{\"flag\":" + std::to_string(flags[i]) + ",\"type\":";
                quoted(kind);
                out_ += ",\"rec\":" + (rec == NULL_REC ? std::string("null") : std::to_string(rec)) + "}";
            } else {
                out_ += kind + ":" + (rec == NULL_REC ? std::string("-") : std::to_string(rec));
            }
        }
        if (json_)
            out_ += "]";
        else if (count == 0)
            out_ += "-";
    }

private:
    static std::string dep_kind(std::uint8_t flag) {
        if (flag < std::size(kDepNames)) return kDepNames[flag];
        if (flag >= 32 && flag < 128) return "resource(" + std::to_string(flag - 31) + ")";
        return "0x" + [&] {
            char b[4];
            std::snprintf(b, sizeof b, "%02X", flag);
            return std::string(b);
        }();
    }
    void key_(const char* key) {
        if (json_) {
            out_ += first_ ? "" : ",";
            out_ += "\"";
            out_ += key;
            out_ += "\":";
        } else {
            out_ += " ";
            out_ += key;
            out_ += "=";
        }
        first_ = false;
    }
    // JSON: escaped, bytes above 0x7F as \u00XX. Text: as it is, quoted
    // when empty or holding blanks.
    void quoted(std::string_view v) {
        if (!json_) {
            bool plain = !v.empty() && v.find_first_of(" \t\"") == std::string_view::npos;
            if (plain) {
                for (unsigned char c : v) out_ += (c < 0x20 || c == 0x7F) ? '?' : static_cast<char>(c);
                return;
            }
        }
        out_ += '"';
        for (unsigned char c : v) {
            if (c == '"' || c == '\\') {
                out_ += '\\';
                out_ += static_cast<char>(c);
            } else if (c < 0x20 || c >= 0x7F) {
                if (!json_) {
                    out_ += '?';
                    continue;
                }
                char b[8];
                std::snprintf(b, sizeof b, "\\u%04X", c);
                out_ += b;
            } else {
                out_ += static_cast<char>(c);
            }
        }
        out_ += '"';
    }

    bool json_;
    bool first_ = true;
    std::string out_;
};

// A number of the record as its row types it (first element of an array).
std::int64_t value_of(const ALMRECTYPE& r, const FieldSpec& f) {
    const unsigned char* p = r.bytes + f.v2.off;
    const bool sign = is_signed(f.v2.type);
    switch (element_width(f.v2.type)) {
    case 1: return *p;
    case 2: return sign ? static_cast<std::int16_t>(load_le16(p)) : load_le16(p);
    default: return sign ? static_cast<std::int32_t>(load_le32(p)) : load_le32(p);
    }
}

// Only the member of the job's subdep union that its flags say is in use.
bool in_use(const ALMRECTYPE& r, Variant v) {
    if (v == Variant::any || r.alm_rec_type != SJ_CODE) return true;
    switch (job_subdep_form(r.sj.sj_num_depends, r.sj.sj_re_flags)) {
    case SubdepForm::Submit: return v == Variant::submit;
    case SubdepForm::Deps: return v == Variant::deps;
    case SubdepForm::Xkes: return v == Variant::external;
    }
    return false;
}

void show_deps(Line& l, const ALMRECTYPE& r) {
    if (r.alm_rec_type == SS_CODE)
        l.deps(r.ss.ss_num_depends, r.ss.ss_depend_flags, r.ss.ss_dependencies);
    else
        l.deps(r.sj.sj_num_depends, r.sj.subdep.deps.sj_depend_flags, r.sj.subdep.deps.sj_dependencies);
}

// The prompt's text runs on into sm_message_more when that holds any.
void show_message(Line& l, const char* key, const SM_RECTYPE& m) {
    std::string text(trimmed(m.sm_message, sizeof m.sm_message));
    std::string more(trimmed(m.sm_message_more, sizeof m.sm_message_more));
    if (!more.empty()) text = std::string(m.sm_message, sizeof m.sm_message) + more;
    l.text(key, text);
}

void show_qualifier(Line& l, const char* key, const SF_RECTYPE& f) {
    const int max = static_cast<int>(sizeof f.sf_feq);
    const int len = f.sf_feq_len < 0 ? 0 : (f.sf_feq_len > max ? max : f.sf_feq_len);
    l.text(key, std::string_view(f.sf_feq, static_cast<std::size_t>(len)));
}

void show_field(Line& l, const ALMRECTYPE& r, std::span<const FieldSpec> table, const FieldSpec& f) {
    switch (f.how) {
    case Show::text: l.field(f.label, reinterpret_cast<const char*>(r.bytes + f.v2.off), f.v2.size); break;
    case Show::number: l.number(f.label, value_of(r, f)); break;
    case Show::link: l.link(f.label, static_cast<std::uint32_t>(value_of(r, f))); break;
    case Show::status: l.status(static_cast<std::int16_t>(value_of(r, f))); break;
    case Show::date: {
        const FieldSpec* time = f.time != nullptr ? find_spec(table, f.time) : nullptr;
        l.date(f.label, static_cast<std::int32_t>(value_of(r, f)), time != nullptr ? static_cast<int>(value_of(r, *time)) : -1);
        break;
    }
    case Show::flags: l.flags(f.label, static_cast<std::uint16_t>(value_of(r, f)), f.flag_names); break;
    case Show::deps: show_deps(l, r); break;
    case Show::message: show_message(l, f.label, r.sm); break;
    case Show::qualifier: show_qualifier(l, f.label, r.sf); break;
    case Show::none: break;
    }
}

// The fields that the kind's table marks to be shown, in the order of rank.
void describe(Line& l, const ALMRECTYPE& r) {
    const std::span<const FieldSpec> table = fields_of_record(r.alm_rec_type);
    std::vector<const FieldSpec*> shown;
    for (const FieldSpec& f : table)
        if (f.how != Show::none && in_use(r, f.variant)) shown.push_back(&f);
    std::sort(shown.begin(), shown.end(), [](const FieldSpec* a, const FieldSpec* b) { return a->rank < b->rank; });
    for (const FieldSpec* f : shown) show_field(l, r, table, *f);
}

bool put(const std::string& s) { return std::fwrite(s.data(), 1, s.size(), stdout) == s.size(); }

}  // namespace

int almplan_dump(int argc, char** argv) {
    const char* path = nullptr;
    bool json = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--json") == 0) {
            json = true;
        } else if (path == nullptr && argv[i][0] != '\0' && std::strncmp(argv[i], "--", 2) != 0) {
            path = argv[i];
        } else {
            path = nullptr;
            break;
        }
    }
    if (path == nullptr) {
        std::fputs("Usage: almplan dump PLAN [--json]\n", stderr);
        return kExitUsage;
    }

    char errtext[ALM_ERRTEXT_SIZE] = {};
    int status = 0;
    alm_session ca = alm_open_session(path, ALM_MODE_READ, &status, errtext);
    if (!ca) {
        std::fprintf(stderr, "almplan: %s\n", errtext);
        return kExitFailure;
    }

    int rc = 0;
    Line line(json);
    ALMRECTYPE rec{};
    for (std::int32_t n = 0; n < ca->num_recs; ++n) {
        const auto recnum = static_cast<std::uint32_t>(n);
        if (recnum == NULL_REC) continue;  // never a record
        rec = ALMRECTYPE{};  // a record of an unknown kind leaves it so
        if (alm_read(ca.get(), recnum, &rec) < 0) {
            char msg[ALM_ERRTEXT_SIZE];
            msg_almerr(ca.get(), msg, sizeof msg);
            std::fprintf(stderr, "almplan: %s\n", msg);
            rc = kExitFailure;
            continue;
        }
        line.begin(recnum, rec.alm_rec_type);
        describe(line, rec);
        if (!put(line.end())) {
            std::perror("almplan: write");
            return kExitFailure;
        }
    }
    if (std::fflush(stdout) != 0) {
        std::perror("almplan: write");
        return kExitFailure;
    }
    return report_damage(path) ? kExitFailure : rc;
}

}  // namespace alm
