// The note of what is to be done, and doing it. The presets file comes last: a SpringBoard that runs
// meanwhile reads it anew and has the settings in memory, so that for it nothing is new until everything is.
#include "settings/store/restoration.hpp"

#include "platform/foundation/file_manager.hpp"
#include "settings/store/domain.hpp"
#include "settings/store/presets_file.hpp"

namespace tilo::restoration {
namespace {

NSString notePath() { return "/var/mobile/Documents/com.wexor.tilo3/restoring.plist"_ns; }

NSFileManager files() { return NSFileManager::defaultManager(); }

template <class T>
T part(NSDictionary note, NSString name) {
  bridge::Object found = note.objectForKey(name);
  return bridge::isKindOf<T>(found) ? bridge::as<T>(found) : T{};
}

// The keys of the first that the second has not.
NSArray keysAdded(NSDictionary values, NSDictionary before) {
  NSMutableArray added = NSMutableArray::array();
  NSArray keys = values.allKeys();
  for (NSUInteger i = 0; i < keys.count(); ++i)
    if (!before.objectForKey(keys.objectAtIndex(i))) added.addObject(keys.objectAtIndex(i));
  return added;
}

// Does it, or undoes it where the disk refuses, and forgets the note unless it can do neither.
bool putInPlace(NSDictionary note) {
  auto values = part<NSDictionary>(note, "values"_ns), before = part<NSDictionary>(note, "before"_ns);
  auto layouts = part<NSData>(note, "presets"_ns);
  bool done = false, kept = true;
  // One that somebody has edited is no decision of ours.
  if (values && before && layouts) {
    bool stored = storeInDomain(values, keysAdded(before, values));
    done = stored && layouts.writeToFile_atomically(presets::path(), YES);
    if (!done) kept = storeInDomain(before, keysAdded(values, before)) || !stored;
  }
  if (kept) files().removeItemAtPath_error(notePath(), nullptr);
  return done;
}

}  // namespace

Outcome carryOut(NSDictionary values, NSData layouts) {
  synchroniseDomain();
  NSDictionary before = valuesOfDomain();
  NSMutableDictionary note = NSMutableDictionary::dictionary();
  note.setObject_forKey(values, "values"_ns);
  note.setObject_forKey(before ? before : NSDictionary::dictionary(), "before"_ns);
  note.setObject_forKey(layouts, "presets"_ns);
  if (note.writeToFile_atomically(notePath(), YES) && putInPlace(note)) return Outcome::done;
  return files().fileExistsAtPath(notePath()) ? Outcome::pending : Outcome::undone;
}

void finish() {
  if (!files().fileExistsAtPath(notePath())) return;
  presets::makeFolder();
  putInPlace(NSDictionary::dictionaryWithContentsOfFile(notePath()));
}

}  // namespace tilo::restoration
