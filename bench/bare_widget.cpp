// The least that a program of the toolkit does for a key: one rectangle in an empty widget.
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

namespace {

class BareWidget : public QWidget {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return) {
            count_ = 0;
            repaint();
        } else {
            repaint(place(count_++));
        }
    }

    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        for (int i = 0; i < count_; ++i)
            if (event->rect().intersects(place(i)))
                painter.fillRect(place(i), Qt::black);
    }

  private:
    static QRect place(int index) { return {4 + index * 12, 4, 10, 16}; }

    int count_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWidget widget;
    widget.setWindowTitle("Bare widget");
    widget.showMaximized();
    return QApplication::exec();
}
