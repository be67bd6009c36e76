// Record replies of the list queries: the records collected end to end in a
// single block that grows as they arrive, and the reply that sends them.
// Records are addressed by index while collecting, since the block moves as
// it grows; the list of pointers is made once collecting is over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "protocol/sll.h"

namespace alm {

class RecordBuffer {
public:
    static constexpr std::size_t kRecordBytes = 512;

    // Appends a copy of the record's 512 bytes and returns the copy, valid
    // until the next append; null when memory runs out (nothing appended).
    unsigned char* append(const void* source);

    std::size_t count() const { return count_; }
    unsigned char* record(std::size_t i) { return data_.get() + i * kRecordBytes; }

    // A list of the records in order, for the reply writer.
    std::unique_ptr<sll> list();

private:
    struct FreeBlock {
        void operator()(unsigned char* p) const noexcept { std::free(p); }
    };
    std::unique_ptr<unsigned char, FreeBlock> data_;
    std::size_t count_ = 0;
    std::size_t capacity_ = 0;
};

// Writes a reply of count records of 512 bytes from list (type 0, dataType 1).
void writeRecordReply(std::uint32_t id, std::int32_t count, sll* list);

}  // namespace alm
