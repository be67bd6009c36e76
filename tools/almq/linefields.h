// The members of each JSON line as a script sees them: every date number
// followed by its ISO 8601 text, and with --fields only the chosen members,
// in the order chosen (as a JSON line or as the cells of a table row).
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace alm {

// One top-level member of a JSON object: its name and its value as JSON text.
struct JsonMember {
    std::string_view name;
    std::string_view value;
};

// Splits a one-line object as JsonWriter writes it into its top-level
// members; answers false for anything else.
bool split_members(std::string_view object, std::vector<JsonMember>& out);

class LineFields {
public:
    // No fields: every member.
    explicit LineFields(std::vector<std::string> fields) : fields_(std::move(fields)), seen_(fields_.size()) {}

    // The object rewritten: each date member followed by NAME_iso.
    void json(std::string_view object, std::string& out);
    // The chosen members' values as table cells: texts unquoted, null and
    // absent members as "-", arrays and objects as their JSON text.
    void cells(std::string_view object, std::vector<std::string>& out);
    // The first chosen name that no line has had so far; "" when none.
    std::string unseen() const;

private:
    // The members of object, with the ISO dates added after their numbers.
    void members(std::string_view object);

    std::vector<std::string> fields_;
    std::vector<bool> seen_;
    std::vector<JsonMember> plain_;      // as written
    std::vector<JsonMember> members_;    // with the ISO dates
    std::deque<std::string> isoTexts_;   // the values of the added members, where they stay put
};

}  // namespace alm
