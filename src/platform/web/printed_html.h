#pragma once

#include <string>

#include "platform/paper/printed_pages.h"

namespace tolmer {

// A drawing for each page, for a browser to print. Their style sheet is the page's.
std::string printedHtml(const PrintedPages& pages);

}  // namespace tolmer
