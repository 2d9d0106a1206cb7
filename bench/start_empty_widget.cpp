// A program with one empty window, until that is painted.
#include "bench/first_paint.h"

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    const quillet::FirstPaint end(&window);
    window.showMaximized();
    return QApplication::exec();
}
