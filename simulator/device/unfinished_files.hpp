// What a process leaves in a folder when it is killed while it writes.
#pragma once

#include <filesystem>

namespace sim {

/**
 * Removes what Foundation began to write beside the folder's property lists and JSON files, and did not come
 * to rename: files that are called as those are, with six letters or digits behind. Nobody may be writing
 * there.
 */
void removeUnfinishedFiles(const std::filesystem::path& folder);

}  // namespace sim
