// Calls of the C library from a library of its own: what the executable has replaced must answer these too.
#pragma once

#include <string>

#define PROBE_EXPORT [[gnu::visibility("default")]]

/** Opens the file with `open`, writes the text and closes it. 0, or the errno. */
PROBE_EXPORT int probeWrite(const char* path, const char* text);
/** What is in the file, read with `fopen`; the errno in brackets when it cannot be opened. */
PROBE_EXPORT std::string probeRead(const char* path);
/** Microseconds since 1970 by `gettimeofday`. */
PROBE_EXPORT long long probeTime();
