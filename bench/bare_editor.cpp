// The toolkit's own text box alone, to measure beside. It opens a file if there is an argument.
#include "platform/main_state.h"

#include <QApplication>
#include <QFile>
#include <QPlainTextEdit>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QPlainTextEdit editor;
    QFont font(quillet::krutiDev010);
    font.setPointSizeF(15.75);
    editor.setFont(font);
    editor.setWindowTitle("Bare editor");
    editor.showMaximized();
    QFile file(argc > 1 ? argv[1] : "");
    if (file.open(QIODevice::ReadOnly))
        editor.setPlainText(QString::fromLatin1(file.readAll()));
    return QApplication::exec();
}
