// The server's replies byte for byte, through almq --raw: the transcripts
// in this folder.
#include "common/transcript.h"

ALM_TRANSCRIPTS(Wire, "e2e");
