// refused: no viable conversion from 'bridge::BlockRef<void \(\)>' to 'bridge::Block<void \(\)>'
#include "bridge/block.hpp"

// Keeping a block that came with a message is said in so many words.
void keep(bridge::BlockRef<void()> block) {
#ifdef CORRECTED
  bridge::Block<void()> kept(block);
#else
  bridge::Block<void()> kept = block;
#endif
}
