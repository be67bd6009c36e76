// almcat as a user runs it: the transcripts in this folder.
#include "common/transcript.h"

ALM_TRANSCRIPTS(Almcat, "almcat");
