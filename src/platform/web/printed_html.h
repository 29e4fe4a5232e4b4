#pragma once

#include <string>

#include "platform/paper/printed_pages.h"

namespace tolmer {

// A document of one drawing a page, for a browser to print. Its style sheet, print.css, is the
// page's.
std::string printedHtml(const PrintedPages& pages);

}  // namespace tolmer
