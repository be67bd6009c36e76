// Raw records of a plan file, read by number through a small cache of large
// blocks, so that walking chains laid out mostly in file order costs about
// one read of the file. Nothing is converted: callers take fields out of
// the disk bytes with the little-endian helpers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace alm {

class PlanRecords {
public:
    PlanRecords() = default;
    ~PlanRecords();
    PlanRecords(const PlanRecords&) = delete;
    PlanRecords& operator=(const PlanRecords&) = delete;

    // Opens path read-only and measures it; answers 0 or the errno.
    int open(const std::string& path);
    // Sets the record size once the header has told it.
    void setRecordSize(int bytes);
    int recordSize() const { return recSize_; }
    std::uint64_t fileBytes() const { return bytes_; }
    // Whole records in the file as last measured.
    std::uint64_t records() const { return bytes_ / static_cast<std::uint64_t>(recSize_); }
    // The record's bytes, valid until the next call, or nullptr when it
    // lies beyond the end even after measuring again (the file may grow)
    // or cannot be read (errno() then tells why).
    const unsigned char* record(std::uint64_t n);
    int error() const { return errno_; }

private:
    static constexpr std::size_t kBlockBytes = 64 * 1024;
    static constexpr int kBlocks = 4;
    struct Block {
        std::uint64_t index = 0;
        std::size_t filled = 0;  // bytes read; 0 for an empty slot
        std::uint64_t used = 0;  // last use, for replacement
        std::unique_ptr<unsigned char[]> bytes;
    };
    bool remeasure();
    Block* load(std::uint64_t index);

    int fd_ = -1;
    int recSize_ = 512;
    std::uint64_t bytes_ = 0;
    std::uint64_t clock_ = 0;
    int errno_ = 0;
    Block blocks_[kBlocks];
};

}  // namespace alm
