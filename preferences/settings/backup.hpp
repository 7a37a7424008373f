// All settings and layouts as one readable JSON file, and back again, all or nothing:
//
//   {"format": "Tilo backup", "version": 1, "settings": {"rows": 5, …},
//   "layouts": [{"name": …}, …]}
//
// The layouts stand last, letter for letter as they do in the presets file.
#pragma once

#include "platform/foundation/dictionary.hpp"

namespace tilo::pane {

// Below the folder of the presets file, named by date.
NSString backupFolder();
// Their names, the newest first.
NSArray backupNames();

// Each answers nil, or what is wrong in words that name the culprit; then nothing has changed, or they say
// when it will.
NSString backUpTo(NSString path);
NSString restoreFrom(NSString path);

}  // namespace tilo::pane
