// The program without its splash, and with the addresses that a test tells.
#include "platform/qt/entry.h"
#include "platform/qt/program.h"
#include "tests/mail_through.h"

int main(int /*argc*/, char** argv) {
    const std::string relay = qEnvironmentVariable("QUILLET_TEST_RELAY").toStdString();
    quillet::Program program(argv, [&] { return std::make_shared<quillet::MailThrough>(relay); });
    quillet::enter([&program] {
        program.mainWindow().webWindow().startPage =
            qEnvironmentVariable("QUILLET_TEST_NEWS").toStdString();
        program.mainWindow().show();
    });
    return quillet::runEvents();
}
