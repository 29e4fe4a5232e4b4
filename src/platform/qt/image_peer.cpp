#include "platform/image.h"

#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>

#include "base/file_io.h"
#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

// Reads its file when it is first painted, at the very size that is painted.
class PictureWidget : public QWidget {
 public:
  using QWidget::QWidget;
  void setFile(const QString& file) {
    file_ = file;
    picture_ = {};
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (file_.isEmpty()) return;
    const double ratio = devicePixelRatioF();
    const QSize room = size() * ratio;
    if (room != room_ || picture_.isNull()) find(room, ratio);
    const QSizeF shown = picture_.deviceIndependentSize();
    QPainter painter(this);
    painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2),
                       picture_);
  }

 private:
  // A drawing that stands on several windows, as the cover's, is read once for each size.
  void find(QSize room, double ratio) {
    room_ = room;
    const QString key = QStringLiteral("%1 %2 %3").arg(file_).arg(room.width()).arg(room.height());
    const bool isDrawing = file_.endsWith(".svg", Qt::CaseInsensitive);
    if (isDrawing && QPixmapCache::find(key, &picture_)) return;
    read(room, ratio);
    if (isDrawing) QPixmapCache::insert(key, picture_);
  }

  void read(QSize room, double ratio) {
    if (!isRegularFile(file_.toStdString())) return;
    // The named format spares a look at every format the system knows.
    QImageReader reader(file_, file_.endsWith(".svg", Qt::CaseInsensitive) ? "svg" : "png");
    reader.setAutoDetectImageFormat(false);
    reader.setScaledSize(reader.size().scaled(room, Qt::KeepAspectRatio));
    picture_ = QPixmap::fromImageReader(&reader);
    picture_.setDevicePixelRatio(ratio);
  }

  QString file_;
  QPixmap picture_;
  QSize room_;
};

class ImagePeer : public ControlPeer {
 public:
  ImagePeer(Mirror& mirror, Image& image, QWidget* ground)
      : ControlPeer(mirror, image, ground), image_(image) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new PictureWidget(ground);
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::look)) widget_->setFile(toQt(image_.file()));
  }

  Image& image_;
  PictureWidget* widget_ = nullptr;
};

}  // namespace

PeerPointer makeImagePeer(Mirror& mirror, Image& image, QWidget* ground) {
  return std::make_unique<ImagePeer>(mirror, image, ground);
}

}  // namespace tolmer
