// Sequential writer of a plan file. Records go out in record-number order
// through alm_e_2_i into a temporary file beside the target, which takes the
// target's name only on commit; on any failure nothing is left behind.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plan/almrecs.h"

namespace alm {

// Record number of the n-th record of a plan (the header is slot 0): record
// 32768 is the null record, so a V2 plan skips it and holds a filler there.
constexpr std::uint64_t recnum_of_slot(std::uint64_t slot) { return slot < NULL_REC ? slot : slot + 1; }
// Records in the file for that many slots, the filler included.
constexpr std::uint64_t file_records(std::uint64_t slots) { return slots > NULL_REC ? slots + 1 : slots; }
// V1 record numbers are 16 bits and 32768 reads as null: numbers 0..32767.
inline constexpr std::uint64_t V1_MAX_RECORDS = NULL_REC;

class PlanWriter {
public:
    // alm_version: 1 writes V2 records, 0 V1 records.
    explicit PlanWriter(std::int16_t alm_version);
    ~PlanWriter();
    PlanWriter(const PlanWriter&) = delete;
    PlanWriter& operator=(const PlanWriter&) = delete;

    bool open(const std::string& path, std::string& err);
    // Appends the record numbered next_recnum(); the filler at 32768 is
    // written first when the plan reaches it.
    bool put(const ALMRECTYPE& ext, std::string& err);
    std::uint32_t next_recnum() const;
    // Record 0 is written last, when every count is known.
    bool commit(const ALMRECTYPE& header, std::string& err);

private:
    bool append(const ALMRECTYPE& ext, std::string& err);
    bool flush(std::string& err);
    void discard();

    std::int16_t version_;
    int rec_size_;
    int fd_ = -1;
    std::string path_;
    std::string tmp_path_;
    std::vector<unsigned char> buf_;
    std::uint64_t written_ = 0;  // records, the header slot included
};

}  // namespace alm
