// The browser's own program. Its arguments are the window's title, the browser's left, top, width
// and height in twips, and the address. Every line on its standard input brings the window
// forward; the end of it closes the window.
#include "platform/qt/browser/browser_window.h"

#include <QApplication>
#include <QSocketNotifier>

#include <array>

#include <unistd.h>

namespace {

// False at the end.
bool readLines() {
    std::array<char, 64> lines{};
    return read(STDIN_FILENO, lines.data(), lines.size()) > 0;
}

// Whatever the system's decimal point is.
quillet::Twips inTwips(const char* text) {
    return {QByteArray(text).toDouble()};
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 7)
        return 2;
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX",
                "1");  // it does not work for root, and for root alone
    int nameAlone = 1; // the rest is not the toolkit's
    const QApplication application(nameAlone, argv);
    QApplication::setApplicationName("Quillet");
    quillet::BrowserWindow window({.title = argv[1],
                                   .left = inTwips(argv[2]),
                                   .top = inTwips(argv[3]),
                                   .width = inTwips(argv[4]),
                                   .height = inTwips(argv[5]),
                                   .address = argv[6]});
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &window, [&] {
        if (readLines())
            window.bringForward();
        else
            QApplication::quit();
    });
    window.showMaximized();
    return QApplication::exec();
}
