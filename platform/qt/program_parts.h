// Where the parts of the program lie that are files of their own.
#pragma once

#include <QString>

namespace quillet {

/// The folder that holds `part`: the program's own, as where it was built, or the one that an
/// installation puts it into, named from there. The first one if neither does.
QString folderWith(const QString& part, const QString& installed);

} // namespace quillet
