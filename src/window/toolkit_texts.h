#pragma once

namespace commtest {

// The toolkit's own texts, as in the menu of a field, are Chinese from here on; English where its translation
// is not installed.
void LoadToolkitTexts();

}  // namespace commtest
