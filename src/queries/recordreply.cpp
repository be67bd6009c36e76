// Collecting the records of a list query and sending them as one reply.
#include "queries/recordreply.h"

#include <cstdint>
#include <cstring>

#include "protocol/write.h"
#include "util/bytecopy.h"

namespace alm {

unsigned char* RecordBuffer::append(const void* source) {
    if (count_ == capacity_) {
        // realloc rather than a new block and a copy: the allocator can extend
        // or remap a large block, so a long reply need not exist twice.
        const std::size_t grown = capacity_ ? capacity_ * 2 : 64;
        if (grown > SIZE_MAX / kRecordBytes) return nullptr;
        void* moved = std::realloc(data_.get(), grown * kRecordBytes);
        if (!moved) return nullptr;
        (void)data_.release();
        data_.reset(static_cast<unsigned char*>(moved));
        capacity_ = grown;
    }
    unsigned char* slot = record(count_);
    copy_bytes(slot, source, kRecordBytes);
    ++count_;
    return slot;
}

std::unique_ptr<sll> RecordBuffer::list() {
    std::unique_ptr<sll> records = sllCreate();
    for (std::size_t i = 0; i < count_; ++i) sllAddNode(records.get(), record(i));
    return records;
}

void writeRecordReply(std::uint32_t id, std::int32_t count, sll* list) {
    Request reply;
    reply.type = 0;
    reply.id = id;
    reply.numData = static_cast<std::uint32_t>(count);
    reply.bytesPerRecord = RecordBuffer::kRecordBytes;
    reply.dataType = 1;
    reply.dataList = list;
    readerWrite(reply);
}

}  // namespace alm
