// The program on the real desktop.
#pragma once

#include "platform/posix/posix_files.h"
#include "platform/qt/curl_mail.h"
#include "platform/qt/qt_forms.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/qt_shell.h"
#include "window/frm_quillet.h"
#include "window/frm_splash.h"

#include <QApplication>

namespace quillet {

/// The toolkit's application with the desktop's services and the windows. There is one at most,
/// and it needs a display.
class Program {
  public:
    /// Knows no command line, not even the toolkit's own.
    explicit Program(char** argv, const MailFactory& makeMailComponent = makeMail);
    ~Program() { forms_.dropWindows(); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    frmSplash& splash() { return splash_; }
    frmQuillet& mainWindow() { return mainWindow_; }

  private:
    static std::shared_ptr<CKpoSendMail> makeMail() { return std::make_shared<CurlMail>(); }

    int argumentCount_ = 1; // the name alone
    QApplication application_;
    QtMessageBox messageBox_;
    QtInputBox inputBox_;
    QtFileChooser fileChooser_;
    QtClipboard clipboard_;
    QtScreen screen_;
    QtShell shell_;
    PosixFiles files_;
    QtPrinter printer_{files_};
    QtForms forms_;
    frmQuillet mainWindow_;
    frmSplash splash_;
};

} // namespace quillet
