#include "platform/qt/program.h"

#include "platform/qt/box_accessible.h"
#include "platform/qt/glyph_text.h"
#include "platform/qt/program_style.h"
#include "platform/qt/x11_keyboard.h"

#include <QSettings>

namespace quillet {

Program::Program(char** argv, const MailFactory& makeMailComponent)
    : application_(argumentCount_, argv),
      mainWindow_({messageBox_, inputBox_, fileChooser_, printer_, printer_, files_, clipboard_,
                   screen_, shell_, forms_, makeMailComponent}),
      splash_(forms_, mainWindow_) {
    QApplication::setApplicationName("Quillet");
    // The toolkit's dialogs would keep some for good.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
    QApplication::setQuitOnLastWindowClosed(false); // the forms know when the last one is gone
    requestDetectableAutoRepeat();
    keepKeysBehindMenus();
    installBoxAccessible();
    deferToolbarExtension();
    offerOpenFonts();
}

} // namespace quillet
