#include "platform/qt/entry.h"

#include "base/run_time_error.h"
#include "platform/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QWidget>

#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace quillet {
namespace {

bool ended = false;
int endedWith = 0; // the exit code
int depth = 0;     // of events within events
std::vector<std::function<void()>> waiting;

void reportAndEnd(int number, const char* text) {
    const QString message = QStringLiteral("Run-time error '%1':\n\n%2").arg(number).arg(text);
    QMessageBox box(QMessageBox::Critical, applicationTitle, message, QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
    endProgram(1);
}

void runReporting(const std::function<void()>& work) {
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

} // namespace

void enter(const std::function<void()>& work) {
    if (ended)
        return;
    ++depth;
    runReporting(work);
    --depth;
    if (depth == 0)
        for (const auto& next : std::exchange(waiting, {}))
            next();
}

void afterwards(const std::function<void()>& work) {
    if (depth > 0)
        waiting.push_back(work);
    else
        work();
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

bool hasEnded() {
    return ended;
}

int runEvents() {
    return ended ? endedWith : QApplication::exec();
}

void leaveModalLoop() {
    if (ended)
        throw EndOfProgram{};
}

} // namespace quillet
