#include "platform/qt/entry.h"
#include "platform/qt/program.h"

#include <cstdio>

namespace {

// Without a display the toolkit would abort.
bool hasDisplay() {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(variable))
            return true;
    return false;
}

} // namespace

int main(int /*argc*/, char** argv) {
    if (!hasDisplay()) {
        std::fputs("quillet: no display: it needs a desktop to open its window on\n", stderr);
        return 1;
    }
    quillet::Program program(argv);
    quillet::enter([&program] { program.splash().show(); });
    return quillet::runEvents();
}
