// What assistive programs and test drivers read of a graph: a chart whose children are the symbols
// and bars that stand for cases.
#pragma once

namespace tolmer {

// To be called before the first graph view is shown.
void installGraphAccessibility();

}  // namespace tolmer
