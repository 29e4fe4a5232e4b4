// Pages of paper, painted.
#pragma once

#include <QPagedPaintDevice>
#include <string>

#include "base/error.h"
#include "platform/paper/printed_pages.h"

class QPainter;

namespace tolmer {

// Paints a page on a painter of which `unit` steps are a point.
void paintPage(QPainter& painter, const PrintedPage& page, double unit);

// An upright page of the pages' paper, without margins: they are the pages' own.
QPageLayout pageLayoutOf(const PrintedPages& pages);

// A PDF with text as text, title, author and bookmarks.
Result<std::string> writePdf(const PrintedPages& pages);

}  // namespace tolmer
