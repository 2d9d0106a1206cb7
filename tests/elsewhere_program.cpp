// The program without its splash, and with the addresses that a test tells.
#include "platform/qt/entry.h"
#include "platform/qt/program.h"

int main(int /*argc*/, char** argv) {
    quillet::Program program(argv);
    quillet::enter([&program] {
        program.mainWindow().webWindow().startPage = getenv("QUILLET_TEST_NEWS");
        program.mainWindow().show();
    });
    return quillet::runEvents();
}
