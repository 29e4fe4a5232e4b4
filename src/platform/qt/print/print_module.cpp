#include "platform/qt/print/print_module.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace tolmer {
namespace {

void prepare(QPrintDialog& dialog, const PrintJob& job) {
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
  dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
  dialog.setMinMax(1, job.pages);
  dialog.setFromTo(1, job.pages);
  dialog.setPrintRange(QAbstractPrintDialog::AllPages);
}

bool printPages(QPrinter& printer, const PrintJob& job, const PrintEnd& end) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QSizeF paper = printer.paperRect(QPrinter::DevicePixel).size();
  for (int page = end.first; page <= end.last; ++page) {
    if (page > end.first && !printer.newPage()) return false;
    job.paint(painter, page, paper);
  }
  return painter.end() && printer.printerState() != QPrinter::Error;
}

void print(QWidget* above, const PrintJob& job, PrintEnd& end) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setFullPage(true);
  printer.setPageLayout(job.layout);
  printer.setDocName(job.title);
  QPrintDialog dialog(&printer, above);
  prepare(dialog, job);
  if (!job.ask(dialog)) return;
  const bool isPart = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  end.first = isPart ? printer.fromPage() : 1;
  end.last = isPart ? qMin(printer.toPage(), job.pages) : job.pages;
  if (printer.outputFormat() == QPrinter::PdfFormat)
    end.file = printer.outputFileName();
  else if (!printPages(printer, job, end))
    end.failure = QStringLiteral("The printer %1 did not take it.").arg(printer.printerName());
}

}  // namespace
}  // namespace tolmer

extern "C" Q_DECL_EXPORT void tolmerPrint(QWidget* above, const tolmer::PrintJob& job,
                                          tolmer::PrintEnd& end) {
  tolmer::print(above, job, end);
}
