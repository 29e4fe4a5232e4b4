#include "platform/qt/clipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>

#include "platform/qt/convert.h"

namespace tolmer {
namespace {

constexpr const char* cellsType = "application/x-zelmar-cells";
constexpr int bitmapScale = 2;
constexpr double dotsPerMetre = 96 / 0.0254;  // of one logical pixel

// The SVG module is loaded here and not with the program. Null without it.
QImage drawn(QByteArray svg) {
  QBuffer buffer(&svg);
  QImageReader reader(&buffer, "svg");
  reader.setScaledSize(reader.size() * bitmapScale);
  reader.setBackgroundColor(Qt::white);
  QImage image = reader.read();
  // Without its resolution the picture would be pasted at twice its size.
  image.setDotsPerMeterX(static_cast<int>(dotsPerMetre * bitmapScale));
  image.setDotsPerMeterY(static_cast<int>(dotsPerMetre * bitmapScale));
  return image;
}

}  // namespace

void putOnClipboard(const ClipboardContent& content) {
  auto* data = new QMimeData;
  if (!content.text.empty()) data->setText(toQt(content.text));
  if (!content.html.empty()) data->setHtml(toQt(content.html));
  if (!content.cells.empty()) data->setData(cellsType, QByteArray::fromStdString(content.cells));
  if (!content.svg.empty()) {
    const QByteArray svg = QByteArray::fromStdString(content.svg);
    data->setData("image/svg+xml", svg);
    if (const QImage image = drawn(svg); !image.isNull()) data->setImageData(image);
  }
  QGuiApplication::clipboard()->setMimeData(data);
}

ClipboardContent fromClipboard() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (!data) return {};
  return {.text = data->text().toStdString(),
          .html = data->hasHtml() ? data->html().toStdString() : std::string(),
          .cells = data->data(cellsType).toStdString()};
}

}  // namespace tolmer
