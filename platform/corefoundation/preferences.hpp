// CFPreferences: the functions and constants in use. Objects are toll-free bridged; Copy gives a reference
// away.
#pragma once

#include "bridge/runtime.hpp"

extern "C" {
extern const id kCFPreferencesCurrentUser;
extern const id kCFPreferencesAnyHost;

id CFPreferencesCopyKeyList(id domain, id user, id host);
id CFPreferencesCopyMultiple(id keys, id domain, id user, id host);
void CFPreferencesSetValue(id key, id value, id domain, id user, id host);
// Sets the values of the first and removes the keys of the second, all in one.
void CFPreferencesSetMultiple(id values, id removedKeys, id domain, id user, id host);
// False when what was set could not be kept.
unsigned char CFPreferencesSynchronize(id domain, id user, id host);
}
