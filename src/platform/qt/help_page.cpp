#include "platform/qt/help_page.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPdfWriter>
#include <QScrollBar>
#include <QTextDocument>

#include "base/file_io.h"
#include "help/topic_page.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

constexpr int textPixels = 14;
constexpr int margin = 18;
constexpr int dotsPerInch = 96;  // so that a page on paper has the sizes of the screen

QString pageStyle() {
  return QStringLiteral(
             "h2 { color: %1; margin-top: 0px; margin-bottom: 8px; }"
             "h3 { color: %1; margin-top: 16px; margin-bottom: 4px; }"
             "h4 { margin-top: 12px; margin-bottom: 0px; }"
             "p { margin-top: 4px; margin-bottom: 8px; }"
             "li { margin-bottom: 4px; }"
             "table { border-collapse: collapse; border: 1px solid %2; margin-top: 4px; }"
             "th { background-color: %3; text-align: left; }"
             "td, th { padding: 4px 8px; border: 1px solid %2; }"
             "a { color: %4; }")
      .arg(theme::text.name(), theme::line.name(), theme::face.name(), theme::accent.name());
}

}  // namespace

HelpPage::HelpPage(const QString& folder, QWidget* parent) : QTextBrowser(parent), folder_(folder) {
  setOpenLinks(false);
  setAccessibleName(QStringLiteral("Help page"));
  QFont font = this->font();
  font.setPixelSize(textPixels);
  document()->setDefaultFont(font);
  document()->setDefaultStyleSheet(pageStyle());
  document()->setDocumentMargin(margin);
}

void HelpPage::showPage(const QString& html, const QString& anchor) {
  setHtml(html);
  document()->setDocumentMargin(margin);
  verticalScrollBar()->setValue(0);
  if (!anchor.isEmpty()) scrollToAnchor(anchor);
}

bool HelpPage::writePdf(const QString& file) const {
  QPdfWriter writer(file);
  writer.setResolution(dotsPerInch);
  writer.setTitle(documentTitle());
  const std::unique_ptr<QTextDocument> copy(document()->clone());
  copy->print(&writer);
  return QFileInfo(file).size() > 0;
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return {};
  const QString file = name.toString();
  if (!isPictureName(file.toStdString())) return {};
  return picture(file);
}

// As many dots as the screen has, so that lines stay sharp on a fine one.
QImage HelpPage::picture(const QString& name) const {
  if (!isRegularFile((folder_ + "/" + name).toStdString())) return {};
  QImageReader reader(folder_ + "/" + name);
  const qreal dots = devicePixelRatioF();
  if (reader.format() == "svg") reader.setScaledSize((QSizeF(reader.size()) * dots).toSize());
  QImage image = reader.read();
  if (reader.format() == "svg") image.setDevicePixelRatio(dots);
  return image;
}

}  // namespace tolmer
