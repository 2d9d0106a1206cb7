#include "platform/qt/program_parts.h"

#include <QCoreApplication>
#include <QDir>

namespace quillet {

QString folderWith(const QString& part, const QString& installed) {
    const QDir own(QCoreApplication::applicationDirPath());
    const QDir other(QDir::cleanPath(own.filePath(installed)));
    return !own.exists(part) && other.exists(part) ? other.path() : own.path();
}

} // namespace quillet
