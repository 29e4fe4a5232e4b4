// Draws the program's icon in one size, for desktops that take pictures of single sizes first.
//   draw_icon ICON.svg SIZE ICON.png
#include <QCoreApplication>
#include <QImage>
#include <QImageReader>
#include <cstdio>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);  // knows where the reader of SVG files is
  const int size = argc == 4 ? QByteArray(argv[2]).toInt() : 0;
  if (size <= 0) {
    std::fputs("Usage: draw_icon ICON.svg SIZE ICON.png\n", stderr);
    return 2;
  }
  QImageReader reader(QString::fromLocal8Bit(argv[1]));
  reader.setScaledSize({size, size});
  const QImage icon = reader.read();
  if (icon.isNull()) {
    std::fprintf(stderr, "draw_icon: %s: %s\n", argv[1], qPrintable(reader.errorString()));
    return 1;
  }
  if (icon.save(QString::fromLocal8Bit(argv[3]), "PNG")) return 0;
  std::fprintf(stderr, "draw_icon: cannot write %s\n", argv[3]);
  return 1;
}
