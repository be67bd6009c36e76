// Placeholder handlers until plans can be opened: no reply, nothing kept.
#include "service/files.h"

namespace alm {

void readerOpenAlmanack(Request&) {}
void readerCloseAlmanack(Request&) {}
void readerGetAlmanackLogs(Request&) {}
void readerCloseAllAlmanack() {}

}  // namespace alm
