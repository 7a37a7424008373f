// The page that shows a home screen in a browser; its files are part of the program.
#pragma once

#include <optional>
#include <string_view>

namespace sim::serve {

struct PageFile {
  std::string_view type;  // as HTTP has it
  std::string_view contents;
};

/** The file of that name below the page's address; the page itself has none. */
std::optional<PageFile> pageFile(std::string_view name);

}  // namespace sim::serve
