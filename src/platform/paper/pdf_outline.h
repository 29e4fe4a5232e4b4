// What the toolkit's writer of PDF files leaves out.
#pragma once

#include <string>

#include "base/error.h"
#include "platform/paper/printed_pages.h"

namespace tolmer {

// The file with the document's author, its language (English) and a bookmark for each heading. They
// are appended as an incremental update (ISO 32000-1, 7.5.6, 12.3.3), so that no byte of the file
// changes. It must have a plain table of its objects and list all pages in one object, as the
// toolkit writes it; another one is an error.
Result<std::string> withOutline(std::string pdf, const PrintedPages& pages);

}  // namespace tolmer
