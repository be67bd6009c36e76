// Plans for the plan library tests, written by almplan from a description;
// their records come back as raw file bytes so tests can damage them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/files.h"
#include "common/runprogram.h"
#include "common/tempdir.h"
#include "util/endian.h"

namespace alm::test {

using Record = std::vector<unsigned char>;

inline Record slurp(const std::string& path) {
    const std::string bytes = read_file(path);
    return Record(bytes.begin(), bytes.end());
}

// The whole records of a file.
inline std::vector<Record> records(const std::string& path, std::size_t rec_size = 512) {
    const Record bytes = slurp(path);
    std::vector<Record> out;
    for (std::size_t at = 0; at + rec_size <= bytes.size(); at += rec_size)
        out.emplace_back(bytes.begin() + static_cast<long>(at), bytes.begin() + static_cast<long>(at + rec_size));
    return out;
}

inline void write_records(const std::string& path, const std::vector<Record>& recs) {
    std::string bytes;
    for (const Record& r : recs) bytes.append(r.begin(), r.end());
    write_file(path, bytes);
}

inline void put16(Record& r, std::size_t off, std::uint16_t v) { store_le16(r.data() + off, v); }
inline void put32(Record& r, std::size_t off, std::uint32_t v) { store_le32(r.data() + off, v); }

}  // namespace alm::test
