// What a process says before a fault ends it.
#pragma once

namespace sim::crash {

/**
 * From now on a signal that ends the process, and an exception that nobody catches, leave on standard error
 * what happened: its name and reason or its signal on a line, then, indented, the method whose replacement
 * was running, whose library that is, and the functions that were called, with files and lines where these
 * are known.
 */
void tellOfFaults();

}  // namespace sim::crash
