// The program without its splash, until the main window is painted. With --stay it does not end
// then, and opens a file that stands behind.
#include "bench/first_paint.h"

#include "platform/posix/posix_files.h"
#include "platform/qt/entry.h"
#include "platform/qt/program.h"

#include <QAbstractScrollArea>
#include <QApplication>

#include <optional>

int main(int argc, char** argv) {
    quillet::Program program(argv);
    quillet::enter([&program] { program.mainWindow().show(); });
    if (argc > 2)
        program.mainWindow().txtMain.load(quillet::PosixFiles().read(argv[2]));
    QWidget* box = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (const auto* view = window->findChild<QAbstractScrollArea*>())
            box = view->viewport();
    std::optional<quillet::FirstPaint> end;
    if (argc == 1)
        end.emplace(box);
    return quillet::runEvents();
}
