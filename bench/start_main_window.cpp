// The program without its splash, until the main window is painted.
#include "bench/first_paint.h"

#include "platform/qt/entry.h"
#include "platform/qt/program.h"

#include <QAbstractScrollArea>
#include <QApplication>

int main(int /*argc*/, char** argv) {
    quillet::Program program(argv);
    quillet::enter([&program] { program.mainWindow().show(); });
    QWidget* box = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (const auto* view = window->findChild<QAbstractScrollArea*>())
            box = view->viewport();
    const quillet::FirstPaint end(box);
    return quillet::runEvents();
}
