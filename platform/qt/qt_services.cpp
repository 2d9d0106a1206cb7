#include "platform/qt/qt_services.h"

#include "platform/qt/entry.h"
#include "platform/qt/text_codec.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStandardPaths>

#include <cmath>

namespace quillet {
namespace {

QMessageBox::Icon qtIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::None:
        return QMessageBox::NoIcon;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons qtButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok:
        return QMessageBox::Ok;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

Answer answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

// Without a Cancel button Qt takes Esc and the close box for No; here they are no answer.
class PatientBox : public QMessageBox {
  public:
    PatientBox(const Message& message, QWidget* parent)
        : QMessageBox(qtIcon(message.icon), fromUtf8(message.title), fromUtf8(message.text),
                      qtButtons(message.buttons), parent),
          mustChoose_(message.buttons == Buttons::YesNo) {
        setTextFormat(Qt::PlainText);
        if (mustChoose_)
            setWindowFlag(Qt::WindowCloseButtonHint, false);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!mustChoose_ || !event->matches(QKeySequence::Cancel))
            QMessageBox::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent* event) override {
        if (mustChoose_)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

  private:
    bool mustChoose_;
};

QStringList nameFilters(const std::vector<FileFilter>& filters) {
    QStringList names;
    for (const FileFilter& filter : filters) {
        QString patterns = fromUtf8(filter.patterns);
        patterns.replace(';', ' ').replace("*.*", "*"); // here names need no dot
        names << QStringLiteral("%1 (%2)").arg(fromUtf8(filter.description), patterns);
    }
    return names;
}

void startAt(QFileDialog& dialog, const QString& name) {
    if (name.isEmpty()) {
        const auto documents = QStandardPaths::DocumentsLocation;
        const QDir folder(QStandardPaths::writableLocation(documents));
        dialog.setDirectory(folder.exists() ? folder : QDir::home());
        return;
    }
    dialog.setDirectory(QFileInfo(name).absolutePath());
    dialog.selectFile(name);
}

// The dialog takes quotation marks for a list of names; here they are part of the one name.
QString chosenPath(const QFileDialog& dialog) {
    const auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (edit != nullptr && edit->text().contains('"'))
        return dialog.directory().absoluteFilePath(edit->text());
    return dialog.selectedFiles().value(0);
}

} // namespace

Answer QtMessageBox::show(const Message& message) {
    PatientBox box(message, QApplication::activeWindow());
    const int button = box.exec();
    leaveModalLoop();
    return answerOf(button);
}

std::string QtInputBox::ask(const std::string& prompt, const std::string& title) {
    QInputDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(fromUtf8(title));
    dialog.setLabelText(fromUtf8(prompt));
    const bool given = dialog.exec() == QDialog::Accepted;
    leaveModalLoop();
    return given ? dialog.textValue().toStdString() : "";
}

// Qt's own dialog: the native ones do not accept a name that is not there, and ask questions of
// their own. It always opens: in Qt's way of saving, the file type would rewrite the name.
std::optional<std::string> QtFileChooser::choose(Purpose purpose,
                                                 const std::vector<FileFilter>& filters,
                                                 const std::string& startName) {
    const bool saves = purpose == Purpose::Save;
    QFileDialog dialog(QApplication::activeWindow(), saves ? "Save As" : "Open");
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setLabelText(QFileDialog::Accept, saves ? "&Save" : "&Open");
    dialog.setNameFilters(nameFilters(filters));
    startAt(dialog, fromUtf8(startName));
    const bool chosen = dialog.exec() == QDialog::Accepted;
    leaveModalLoop();
    if (!chosen)
        return std::nullopt;
    return chosenPath(dialog).toStdString();
}

void QtClipboard::setText(GlyphView text) {
    QGuiApplication::clipboard()->setText(displayText(text));
}

GlyphString QtClipboard::text() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && isText(*data) ? glyphText(data->text()) : GlyphString();
}

double QtScreen::dotsPerInch() {
    return QGuiApplication::primaryScreen()->logicalDotsPerInch();
}

int QtScreen::pixels(Twips length) {
    return static_cast<int>(std::lround(toPixels(length, dotsPerInch())));
}

Twips QtScreen::width() const {
    return fromPixels(QGuiApplication::primaryScreen()->size().width(), dotsPerInch());
}

Twips QtScreen::height() const {
    return fromPixels(QGuiApplication::primaryScreen()->size().height(), dotsPerInch());
}

// Qt keeps a stack of pointers; here there is one, however often it is set.
void QtScreen::MousePointer(Pointer pointer) {
    while (QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor();
    if (pointer == Pointer::Hourglass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

} // namespace quillet
