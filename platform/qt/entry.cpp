#include "platform/qt/entry.h"

#include "base/run_time_error.h"
#include "platform/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QWidget>

#include <exception>
#include <new>

namespace quillet {
namespace {

bool ended = false;
int endedWith = 0; // the exit code

void reportAndEnd(int number, const char* text) {
    const QString message = QStringLiteral("Run-time error '%1':\n\n%2").arg(number).arg(text);
    QMessageBox box(QMessageBox::Critical, applicationTitle, message, QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
    endProgram(1);
}

} // namespace

void enter(const std::function<void()>& work) {
    if (ended)
        return;
    try {
        work();
    } catch (const EndOfProgram&) {
        endProgram();
    } catch (const RunTimeError& error) {
        reportAndEnd(error.number(), error.what());
    } catch (const std::bad_alloc&) {
        const RunTimeError error(ErrorNumber::OutOfMemory);
        reportAndEnd(error.number(), error.what());
    } catch (const std::exception& error) {
        reportAndEnd(static_cast<int>(ErrorNumber::InvalidProcedureCall), error.what());
    }
}

void endProgram(int exitCode) {
    if (ended)
        return;
    ended = true;
    endedWith = exitCode;
    for (QWidget* window : QApplication::topLevelWidgets())
        window->hide();
    QCoreApplication::exit(exitCode);
}

int runEvents() {
    return ended ? endedWith : QApplication::exec();
}

void leaveModalLoop() {
    if (ended)
        throw EndOfProgram{};
}

} // namespace quillet
