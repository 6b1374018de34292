// The least that a Qt program can do to show a picture: what the start of Tavrix is measured against.

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <utility>

namespace {

class PictureWidget final : public QWidget {
  public:
    explicit PictureWidget(QImage picture) : picture_(std::move(picture)) { resize(picture_.size()); }

  protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, picture_); }

  private:
    QImage picture_;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc < 2) return 1;
    QImage picture(QString::fromLocal8Bit(argv[1]));
    if (picture.isNull()) return 1;
    PictureWidget widget(std::move(picture));
    widget.show();
    return QApplication::exec();
}
