// The frame record used for requests and replies alike: the header words and
// the list of string arguments (requests) or body items (replies).
#pragma once

#include "protocol/frame.h"
#include "protocol/sll.h"

namespace alm {

struct Request : FrameHeader {
    // Request arguments (pointers into the loop's argument area) or reply
    // body items; null when there are none. Never owned by the Request.
    sll* dataList = nullptr;
    // Set by readerExit; the loop ends the process once the handler returns.
    bool exitRequested = false;
};

using readerHandler = void (*)(Request&);

}  // namespace alm
