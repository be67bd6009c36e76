#include "plan/fieldspec.h"

namespace alm {

const FieldSpec* find_spec(std::span<const FieldSpec> table, std::string_view name) {
    for (const FieldSpec& f : table)
        if (name == f.name) return &f;
    return nullptr;
}

}  // namespace alm
