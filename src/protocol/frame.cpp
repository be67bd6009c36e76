// Big-endian encoding and decoding of frame headers and requests.
#include "protocol/frame.h"

#include "util/endian.h"

namespace alm {

void storeHeader(unsigned char* bytes, const FrameHeader& h) {
    const std::uint32_t words[6] = {h.size, h.type, h.id, h.numData, h.bytesPerRecord, h.dataType};
    for (int i = 0; i < 6; ++i) store_be32(bytes + 4 * i, words[i]);
}

FrameHeader decodeHeader(const unsigned char* b) {
    FrameHeader h;
    h.size = load_be32(b);
    h.type = load_be32(b + 4);
    h.id = load_be32(b + 8);
    h.numData = load_be32(b + 12);
    h.bytesPerRecord = load_be32(b + 16);
    h.dataType = load_be32(b + 20);
    return h;
}

std::string encodeHeader(const FrameHeader& h) {
    unsigned char bytes[ALM_FRAME_HEADER_BYTES];
    storeHeader(bytes, h);
    return std::string(reinterpret_cast<const char*>(bytes), sizeof bytes);
}

std::string encodeRequest(std::uint32_t type, std::uint32_t id,
                          const std::vector<std::string>& args) {
    std::string area;
    for (const std::string& arg : args) {
        area += arg;
        area.push_back('\0');
    }
    FrameHeader h;
    h.size = static_cast<std::uint32_t>(ALM_FRAME_HEADER_AFTER_SIZE + area.size());
    h.type = type;
    h.id = id;
    h.numData = static_cast<std::uint32_t>(args.size());
    return encodeHeader(h) + area;
}

}  // namespace alm
