#include "platform/qt/qt_shell.h"

#include "platform/qt/program_parts.h"
#include "platform/qt/text_codec.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

namespace quillet {
namespace {

bool isProgram(const QString& name) {
    return !QStandardPaths::findExecutable(name).isEmpty();
}

// The kind of thing, as the desktop associates programs with it.
QString kindOf(const QUrl& target) {
    if (!target.isLocalFile())
        return "x-scheme-handler/" + target.scheme();
    return QMimeDatabase().mimeTypeForFile(target.toLocalFile()).name();
}

bool isForBrowsers(const QString& kind) {
    constexpr const char* kinds[] = {"x-scheme-handler/http", "x-scheme-handler/https", "text/html",
                                     "application/xhtml+xml"};
    return std::find(std::begin(kinds), std::end(kinds), kind) != std::end(kinds);
}

// Where nothing is chosen, xdg-open itself takes one of these for web pages.
bool hasBrowser() {
    constexpr const char* browsers[] = {"x-www-browser", "firefox", "chromium"};
    return !qEnvironmentVariableIsEmpty("BROWSER") ||
           std::any_of(std::begin(browsers), std::end(browsers), isProgram);
}

bool isAssociated(const QString& kind) {
    constexpr int patience = 5000; // milliseconds
    if (isForBrowsers(kind) && hasBrowser())
        return true;
    QProcess query;
    query.start("xdg-mime", {"query", "default", kind});
    return query.waitForFinished(patience) && !query.readAllStandardOutput().trimmed().isEmpty();
}

int missing(const QFileInfo& file) {
    return file.dir().exists() ? Shell::FileNotFound : Shell::PathNotFound;
}

} // namespace

int QtShell::ShellExecuteA(const std::string& /*operation*/, const std::string& file,
                           const std::string& /*parameters*/, const std::string& directory,
                           int /*showCommand*/) {
    const QString folder = fromUtf8(directory);
    QUrl target(fromUtf8(file), QUrl::StrictMode);
    if (target.scheme().isEmpty()) {
        const QFileInfo path(QDir(folder), fromUtf8(file));
        if (!path.exists())
            return missing(path);
        target = QUrl::fromLocalFile(path.absoluteFilePath());
    }
    if (!isProgram("xdg-open") || !isProgram("xdg-mime"))
        return LibraryNotFound;
    if (!isAssociated(kindOf(target)))
        return NoAssociation;
    const QString name = target.isLocalFile() ? target.toLocalFile() : QString(target.toEncoded());
    return QProcess::startDetached("xdg-open", {name}, folder) ? Success : LibraryNotFound;
}

std::string QtShell::programFolder() const {
    return folderWith("help", QUILLET_DATA).toStdString();
}

} // namespace quillet
