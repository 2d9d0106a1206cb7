// The toolkit's own text box alone, to measure beside.
#include "platform/main_state.h"

#include <QApplication>
#include <QPlainTextEdit>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QPlainTextEdit editor;
    QFont font(quillet::krutiDev010);
    font.setPointSizeF(15.75);
    editor.setFont(font);
    editor.setWindowTitle("Bare editor");
    editor.showMaximized();
    return QApplication::exec();
}
