// Every method of SpringBoard that the library replaces or adds.
#pragma once

namespace tilo {

// Installs the table, row by row in its order.
void installMethods();

}  // namespace tilo
