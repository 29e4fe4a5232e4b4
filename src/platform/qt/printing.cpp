#include "platform/qt/printing.h"

#include <QDialog>
#include <QLibrary>
#include <QPainter>
#include <algorithm>

#include "base/paths.h"
#include "platform/qt/convert.h"
#include "platform/qt/page_painter.h"
#include "platform/qt/print/print_module.h"

namespace tolmer {
namespace {

// Those pages alone, with what leads to them.
PrintedPages pagesFrom(const PrintedPages& pages, int first, int last) {
  PrintedPages part = pages;
  const auto from = static_cast<std::size_t>(first - 1);
  const auto count = static_cast<std::size_t>(last - first + 1);
  part.pages.assign(pages.pages.begin() + static_cast<std::ptrdiff_t>(from),
                    pages.pages.begin() + static_cast<std::ptrdiff_t>(from + count));
  std::erase_if(part.headings, [&](const PrintedHeading& heading) {
    return heading.page < from || heading.page >= from + count;
  });
  for (PrintedHeading& heading : part.headings) heading.page -= from;
  return part;
}

// On paper that the user chose in the printer's own dialog; a smaller one takes the whole page,
// too. Pages across are turned, since printers change the lie of their paper only between jobs.
void paintOnPaper(QPainter& painter, const PrintedPages& pages, std::size_t page, QSizeF paper) {
  const double unit =
      std::min(paper.width() / pages.paper.width, paper.height() / pages.paper.height);
  painter.save();
  if (pages.pages[page].isAcross) {
    painter.translate(pages.paper.width * unit, 0);
    painter.rotate(90);
  }
  paintPage(painter, pages.pages[page], unit);
  painter.restore();
}

}  // namespace

void askAndPrint(const PrintingDoor& door, const PrintedPages& pages) {
  QLibrary module(toQt(programPart(printModuleFile)));
  const auto print = reinterpret_cast<PrintFunction>(module.resolve(printFunctionName));
  if (!print) return door.tellFailure(module.errorString().toStdString());
  const PrintJob job{.title = toQt(pages.title),
                     .layout = pageLayoutOf(pages),
                     .pages = static_cast<int>(pages.pages.size()),
                     .ask =
                         [&](QDialog& dialog) {
                           QEventLoop loop;
                           QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
                           dialog.show();
                           door.mirror.gate.run(loop);
                           return dialog.result() == QDialog::Accepted;
                         },
                     .paint = [&](QPainter& painter, int page,
                                  QSizeF paper) { paintOnPaper(painter, pages, page - 1, paper); }};
  PrintEnd end;
  print(door.mirror.windows.top(), job, end);
  door.mirror.gate.rethrow();
  if (!end.file.isEmpty())
    door.save(pagesFrom(pages, end.first, end.last), end.file.toStdString());
  else if (!end.failure.isEmpty())
    door.tellFailure(end.failure.toStdString());
}

}  // namespace tolmer
