// Emptying and copying.
#include "simulator/serve/root_copy.hpp"

namespace sim::serve {

namespace fs = std::filesystem;

void copyRoot(const fs::path& from, const fs::path& to) {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(to, error)) fs::remove_all(entry, error);
  fs::create_directories(to, error);
  for (const auto& entry : fs::directory_iterator(from, error)) {
    const fs::path place = to / entry.path().filename();
    const fs::file_status status = entry.symlink_status(error);
    if (fs::is_directory(status))
      copyRoot(entry, place);
    else if (fs::is_symlink(status))
      fs::copy_symlink(entry, place, error);
    else if (fs::is_regular_file(status))
      fs::copy_file(entry, place, error);
  }
}

}  // namespace sim::serve
