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
unsigned char CFPreferencesSynchronize(id domain, id user, id host);
}
