// refused: no viable conversion from 'const Key<.*to 'Key<Kind::flag
#include "settings/store/values.hpp"

BOOL asked() {
#ifdef CORRECTED
  return tilo::settings().flag(tilo::keys::labels);
#else
  return tilo::settings().flag(tilo::keys::vertIconPadding);
#endif
}
