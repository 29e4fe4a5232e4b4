#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTreeWidget>
#include <memory>
#include <string>

#include "help/help_reader.h"
#include "platform/desktop.h"
#include "platform/qt/companion_window.h"

namespace tolmer {

// Shows one page of the help or the notebook. Pictures come from its folders and from nowhere else;
// links are told and not followed.
class HelpPage : public QTextBrowser {
 public:
  HelpPage(const QStringList& folders, QWidget* parent);

  void setFolders(const QStringList& folders) { folders_ = folders; }

  // At the size that everything has now.
  void showAnew();
  void showPage(const QString& html, const QString& anchor);
  // The page on paper, as a PDF file. False where it cannot be written.
  bool writePdf(const QString& file) const;

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QImage picture(const QString& name) const;

  QStringList folders_;
};

// One window, used again for every request.
class HelpWindow : public CompanionWindow {
 public:
  using OpenDocument = std::function<void(const std::string& path, std::function<void()> failed)>;
  // `top` as for CompanionWindow. A printed page is handed to the host's reader.
  HelpWindow(const std::string& folder, std::function<QWidget*()> top, OpenDocument openDocument);

  void answer(const HelpRequest& request);
  // The zoom has changed.
  void showAnew();
  const HelpReader& reader() const { return reader_; }

 private:
  void layOut();
  QWidget* makeButtons();
  QWidget* makeFinder();
  void addKeys();
  void connectWidgets();
  void fillContents();

  void open(const HelpRequest& request);
  void go(void (HelpReader::*way)());
  void showPlace();
  void markInContents();
  void search(const QString& text);
  void openFirstHit();
  void openItem(const QVariant& index);
  void toSearch();
  void toContents();
  void print();

  HelpReader reader_;
  std::vector<HelpHit> found_;
  OpenDocument openDocument_;
  std::unique_ptr<QTemporaryDir> printed_;

  // Children: the toolkit destroys them with this window.
  HelpPage* page_;
  QLineEdit* query_;
  QStackedWidget* finder_;
  QTreeWidget* contents_;
  QListWidget* hits_;
  QPushButton* back_;
  QPushButton* forward_;
  QPushButton* home_;
  QPushButton* print_;
  QLabel* printedTo_;
};

}  // namespace tolmer
