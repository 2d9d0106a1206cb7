#include "platform/qt/qt_forms.h"

#include "comm/frm_web.h"
#include "platform/form.h"
#include "platform/qt/browser_process.h"
#include "platform/qt/entry.h"
#include "platform/qt/form_window.h"
#include "platform/qt/main_window.h"
#include "platform/qt/text_codec.h"
#include "window/frm_quillet.h"

#include <QWidget>

namespace quillet {
namespace {

QWidget* makeWindow(Form& form) {
    if (auto* main = dynamic_cast<frmQuillet*>(&form))
        return new MainWindow(*main);
    return new FormWindow(form);
}

// Qt takes "[*]" in a title for a mark of its own; twice it stands for itself.
QString titleOf(const Form& form) {
    return fromUtf8(form.Caption()).replace("[*]", "[*][*]");
}

} // namespace

QtForms::QtForms() = default;

QtForms::~QtForms() = default;

void QtForms::show(Form& form) {
    if (auto* web = dynamic_cast<frmWeb*>(&form))
        return showWeb(*web);
    QWidget*& window = windows_[&form];
    if (window == nullptr) {
        window = makeWindow(form);
        window->setWindowTitle(titleOf(form));
        form.design().frame == FormFrame::Maximized ? window->showMaximized() : window->show();
    }
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
}

void QtForms::showWeb(frmWeb& form) {
    if (browser_ != nullptr)
        browser_->bringForward();
    else
        browser_ = std::make_unique<BrowserProcess>(form, [&] { enter([&] { form.close(); }); });
}

void QtForms::hide(Form& form) {
    if (dynamic_cast<frmWeb*>(&form) != nullptr)
        browser_.release()->deleteLater(); // its own event is what hides it
    else
        dropWindow(form);
    if (windows_.empty() && browser_ == nullptr)
        endProgram();
}

void QtForms::dropWindow(Form& form) {
    const auto found = windows_.find(&form);
    if (found == windows_.end())
        return;
    found->second->hide();
    found->second->deleteLater(); // an event of this window may be what hides it
    windows_.erase(found);
}

void QtForms::captionChanged(Form& form) {
    const auto found = windows_.find(&form);
    if (found != windows_.end())
        found->second->setWindowTitle(titleOf(form));
}

void QtForms::dropWindows() {
    for (const auto& [form, window] : windows_)
        delete window;
    windows_.clear();
    browser_.reset();
}

} // namespace quillet
