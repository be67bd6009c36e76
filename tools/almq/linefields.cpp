#include "linefields.h"

#include <cstdlib>
#include <deque>

#include "planview.h"

namespace alm {
namespace {

// A date number and the hhmm number that goes with it; the open reply's
// plan date has no time.
struct DatePair {
    const char* date;
    const char* time;
    const char* iso;  // the member added after the date
};

constexpr DatePair kDates[] = {
    {"sci_date_started", "sci_time_started", "sci_date_started_iso"},
    {"ss_sched_date", "ss_start_time", "ss_sched_date_iso"},
    {"ss_until_date", "ss_until_time", "ss_until_date_iso"},
    {"ss_date_started", "ss_time_started", "ss_date_started_iso"},
    {"sj_sched_date", "sj_start_time", "sj_sched_date_iso"},
    {"sj_until_date", "sj_until_time", "sj_until_date_iso"},
    {"sj_date_started", "sj_time_started", "sj_date_started_iso"},
    {"sm_date_asked", "sm_time_asked", "sm_date_asked_iso"},
    {"sm_date_resp", "sm_time_resp", "sm_date_resp_iso"},
    {"sh_sched_date", nullptr, "sh_sched_date_iso"},
};

std::int64_t number(std::string_view v) { return std::strtoll(std::string(v).c_str(), nullptr, 10); }

// A date member's ISO text as a JSON value: null where there is no date.
std::string iso_value(const DatePair& d, const JsonMember& date, const std::vector<JsonMember>& members);

// Past the JSON value that starts at i: a string, or anything up to the
// next comma or closing bracket at its own depth.
std::size_t value_end(std::string_view s, std::size_t i) {
    int depth = 0;
    bool text = false;
    for (; i < s.size(); ++i) {
        const char c = s[i];
        if (text) {
            if (c == '\\') ++i;
            else if (c == '"') text = false;
            continue;
        }
        if (c == '"') text = true;
        else if (c == '{' || c == '[') ++depth;
        else if ((c == '}' || c == ']') && depth-- == 0) return i;
        else if (c == ',' && depth == 0) return i;
    }
    return i;
}

const JsonMember* find(const std::vector<JsonMember>& members, std::string_view name) {
    for (const JsonMember& m : members) {
        if (m.name == name) return &m;
    }
    return nullptr;
}

// The JSON string's text: escapes undone, \u escapes below 0x80 kept, others as '?'.
std::string unquoted(std::string_view v) {
    std::string out;
    for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        if (v[i] != '\\' || i + 2 >= v.size()) {
            out += v[i];
            continue;
        }
        const char e = v[++i];
        if (e == 'u') {
            const long code = std::strtol(std::string(v.substr(i + 1, 4)).c_str(), nullptr, 16);
            out += code >= 0x20 && code < 0x7F ? static_cast<char>(code) : '?';
            i += 4;
        } else {
            out += e == 'n' ? '\n' : e == 't' ? '\t' : e;
        }
    }
    return out;
}

}  // namespace

bool split_members(std::string_view object, std::vector<JsonMember>& out) {
    out.clear();
    if (object.size() < 2 || object.front() != '{' || object.back() != '}') return false;
    std::size_t i = 1;
    while (i < object.size() - 1) {
        const std::size_t colon = object.find("\":", i);
        if (object[i] != '"' || colon == std::string_view::npos) return false;
        const std::size_t end = value_end(object, colon + 2);
        out.push_back({object.substr(i + 1, colon - i - 1), object.substr(colon + 2, end - colon - 2)});
        i = end + 1;
    }
    return true;
}

namespace {

std::string iso_value(const DatePair& d, const JsonMember& date, const std::vector<JsonMember>& members) {
    std::string iso;
    if (d.time == nullptr) {
        iso = plan_date_text(number(date.value));
    } else if (const JsonMember* time = find(members, d.time)) {
        iso = iso_date_time(number(date.value), number(time->value));
    }
    return iso.empty() || iso == "-" ? "null" : "\"" + iso + "\"";
}

}  // namespace

void LineFields::members(std::string_view object) {
    isoTexts_.clear();
    split_members(object, plain_);
    members_.clear();
    for (const JsonMember& m : plain_) {
        members_.push_back(m);
        for (const DatePair& d : kDates) {
            if (m.name != d.date) continue;
            isoTexts_.push_back(iso_value(d, m, plain_));
            members_.push_back({d.iso, isoTexts_.back()});
        }
    }
    for (std::size_t f = 0; f < fields_.size(); ++f) {
        if (!seen_[f]) seen_[f] = find(members_, fields_[f]) != nullptr;
    }
}

void LineFields::json(std::string_view object, std::string& out) {
    members(object);
    out += '{';
    bool first = true;
    auto emit = [&](const JsonMember& m) {
        if (!first) out += ',';
        first = false;
        out += '"';
        out += m.name;
        out += "\":";
        out += m.value;
    };
    if (fields_.empty()) {
        for (const JsonMember& m : members_) emit(m);
    }
    for (const std::string& name : fields_) {
        if (const JsonMember* m = find(members_, name)) emit(*m);
    }
    out += '}';
}

void LineFields::cells(std::string_view object, std::vector<std::string>& out) {
    members(object);
    out.clear();
    for (const std::string& name : fields_) {
        const JsonMember* m = find(members_, name);
        if (m == nullptr || m->value == "null") out.emplace_back("-");
        else if (m->value.front() == '"') out.push_back(unquoted(m->value));
        else out.emplace_back(m->value);
    }
}

std::string LineFields::unseen() const {
    for (std::size_t f = 0; f < fields_.size(); ++f) {
        if (!seen_[f]) return fields_[f];
    }
    return {};
}

}  // namespace alm
