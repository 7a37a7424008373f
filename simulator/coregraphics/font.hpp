// CGDataProvider and CGFont.
#pragma once

#include <memory>

#include "bridge/strong.hpp"
#include "platform/coregraphics/font.hpp"
#include "platform/foundation/data.hpp"
#include "simulator/quartz/font_file.hpp"

struct CGDataProvider {
  bridge::Strong<NSData> data;
  int references = 1;
};

struct CGFont {
  std::shared_ptr<sim::FontFile> file;
  int references = 1;
};
