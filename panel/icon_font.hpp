// The icon font.
#pragma once

namespace tilo {

// Makes the font of the resource bundle known to the process and tells the log how that went. Fails where the
// font is missing, is broken, or is known already.
void registerIconFont();

}  // namespace tilo
