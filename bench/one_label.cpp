// The least that a program with a window can do: the baseline of the start-up benchmark. It leaves
// after its first paint.
#include <QApplication>
#include <QLabel>
#include <QTimer>

namespace {

class FirstPaintLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  FirstPaintLabel label("One label");
  label.resize(640, 480);
  label.show();
  return QApplication::exec();
}
