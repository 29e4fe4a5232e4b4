// Eigen asks for this one first, which emscripten does not have; all that it uses stands in the
// others.
#pragma once
