#include "platform/qt/page_painter.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>

#include "base/program_version.h"
#include "platform/paper/pdf_outline.h"
#include "platform/qt/convert.h"
#include "platform/qt/graph_view.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

constexpr int pdfUnit = 10;  // steps of a point, so that letters have tenths of it
constexpr int pointsPerInch = 72;

// Without kerning and hinting the widths are those of the tables that the layout was made with.
QFont paperFont(const Font& font, double unit) {
  QFont result = toQt(font);
  result.setPixelSize(static_cast<int>(std::lround(font.pixels * unit)));
  result.setKerning(false);
  result.setHintingPreference(QFont::PreferNoHinting);
  theme::keepLettersApart(result);
  return result;
}

struct MarkPainter {
  QPainter& painter;
  double unit;

  void operator()(const PrintedBox& box) const {
    painter.fillRect(QRectF(box.left * unit, box.top * unit, box.width * unit, box.height * unit),
                     toQt(box.fill));
  }

  void operator()(const PrintedText& text) const {
    const QString letters = toQt(text.text);
    const QFont font = paperFont(text.font, unit);
    const double length = QFontMetricsF(font, painter.device()).horizontalAdvance(letters);
    const double room = text.room * unit;
    const double narrowed = room > 0 && length > room ? room / length : 1;
    const double before = text.align == Align::left     ? 0
                          : text.align == Align::centre ? length / 2
                                                        : length;
    painter.save();
    painter.setFont(font);
    painter.setPen(toQt(text.colour));
    painter.translate(text.x * unit, text.baseLine * unit);
    if (narrowed < 1) painter.scale(narrowed, 1);
    painter.drawText(QPointF(-before, 0), letters);
    painter.restore();
  }

  void operator()(const PrintedPicture& picture) const {
    painter.save();
    painter.translate(picture.left * unit, picture.top * unit);
    const double scale = picture.width * unit / picture.picture->size.width;
    painter.scale(scale, scale);
    paintPicture(painter, *picture.picture, PictureUse::document);
    painter.restore();
  }
};

QPageLayout layoutOf(const PrintedPages& pages, const PrintedPage& page) {
  QPageLayout layout = pageLayoutOf(pages);
  if (page.isAcross) layout.setOrientation(QPageLayout::Landscape);
  return layout;
}

}  // namespace

QPageLayout pageLayoutOf(const PrintedPages& pages) {
  const QPageSize size(QSizeF(pages.paper.width, pages.paper.height), QPageSize::Point, {},
                       QPageSize::FuzzyMatch);
  return {size, QPageLayout::Portrait, QMarginsF(), QPageLayout::Point, QMarginsF()};
}

void paintPage(QPainter& painter, const PrintedPage& page, double unit) {
  for (const PrintedMark& mark : page.marks) std::visit(MarkPainter{painter, unit}, mark);
}

Result<std::string> writePdf(const PrintedPages& pages) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QPdfWriter writer(&bytes);
  writer.setTitle(toQt(pages.title));
  writer.setCreator(toQt(programAndVersion()));
  writer.setResolution(pdfUnit * pointsPerInch);
  writer.setPageLayout(layoutOf(pages, pages.pages.front()));
  QPainter painter;
  if (!painter.begin(&writer)) return Error{"", "No PDF could be made."};
  for (const PrintedPage& page : pages.pages) {
    if (&page != &pages.pages.front()) {
      writer.setPageLayout(layoutOf(pages, page));
      writer.newPage();
    }
    paintPage(painter, page, pdfUnit);
  }
  painter.end();
  return withOutline(bytes.data().toStdString(), pages);
}

}  // namespace tolmer
