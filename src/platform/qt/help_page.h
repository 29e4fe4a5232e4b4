#pragma once

#include <QTextBrowser>

namespace tolmer {

// Shows one page of the help. Pictures come from the help's folder and from nowhere else; links are
// told and not followed.
class HelpPage : public QTextBrowser {
 public:
  HelpPage(const QString& folder, QWidget* parent);

  void showPage(const QString& html, const QString& anchor);
  // The page on paper, as a PDF file. False where it cannot be written.
  bool writePdf(const QString& file) const;

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QImage picture(const QString& name) const;

  QString folder_;
};

}  // namespace tolmer
