// The preferences of a first start.
#pragma once

namespace tilo {

// Writes the preferences file with its defaults when there is none. A file that exists keeps its values, and
// what it lacks reads as zero. A disk that refuses is ignored.
void seedPreferences();

}  // namespace tilo
