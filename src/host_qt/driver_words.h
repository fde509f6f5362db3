#pragma once

namespace commtest {

// From now on the toolkit's drivers of stores are silent: what they would print of a failed statement goes
// with its error to who asked. Everything else is printed as before.
void SilenceStoreDrivers();

}  // namespace commtest
