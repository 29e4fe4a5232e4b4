// What the program and its printing module know of each other. The module alone is linked with the
// toolkit's printing library.
#pragma once

#include <QPageLayout>
#include <QString>
#include <functional>

class QDialog;
class QPainter;
class QWidget;

namespace tolmer {

struct PrintJob {
  QString title;
  QPageLayout layout;
  int pages = 0;
  // Shows the dialog until it is closed; was it accepted?
  std::function<bool(QDialog&)> ask;
  // Paints a page, from 1, on a sheet of that size in the painter's units.
  std::function<void(QPainter&, int page, QSizeF paper)> paint;
};

// Where the user gave up, nothing is set.
struct PrintEnd {
  QString file;  // the user wants a PDF of these pages there: the program writes it
  int first = 0;
  int last = 0;
  QString failure;  // why nothing was printed
};

inline constexpr const char* printModuleFile = "tolprint.so";
inline constexpr const char* printFunctionName = "tolmerPrint";
using PrintFunction = void (*)(QWidget* above, const PrintJob& job, PrintEnd& end);

}  // namespace tolmer
