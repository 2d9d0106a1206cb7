#include "platform/desktop.h"
#include "platform/message_box.h"
#include "platform/posix/posix_files.h"
#include "platform/qt/box_accessible.h"
#include "platform/qt/entry.h"
#include "platform/qt/qt_forms.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/x11_keyboard.h"
#include "window/frm_quillet.h"
#include "window/frm_splash.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

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
    using namespace quillet;
    if (!hasDisplay()) {
        std::fputs("quillet: no display: it needs a desktop to open its window on\n", stderr);
        return 1;
    }
    int onlyTheName = 1; // there is no command line, not even the toolkit's own
    QApplication application(onlyTheName, argv);
    QApplication::setApplicationName("Quillet");
    const QTemporaryDir settings; // the toolkit's dialogs would keep some for good
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QApplication::setQuitOnLastWindowClosed(false); // the forms know when the last one is gone
    requestDetectableAutoRepeat();
    installBoxAccessible();

    QtMessageBox messageBox;
    QtFileChooser fileChooser;
    QtClipboard clipboard;
    QtScreen screen;
    PosixFiles files;
    QtForms forms;
    frmQuillet form({messageBox, fileChooser, files, clipboard, screen, forms});
    frmSplash splash(forms, form);
    enter([&splash] { splash.show(); });
    const int exitCode = runEvents();
    forms.dropWindows();
    return exitCode;
}
