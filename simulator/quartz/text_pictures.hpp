// Texts as pictures: what was drawn is there when the same is drawn again.
#pragma once

namespace sim {

/** Fonts have been added: a text may look another way now. */
void forgetTextPictures();

}  // namespace sim
