// The pictures of the program.
#pragma once

#include <QIcon>
#include <QPixmap>

#include <string_view>

namespace quillet {

/// The image of the image list under `key`, read when it is painted. An unknown key gives
/// an empty icon.
QIcon toolbarIcon(std::string_view key);

/// The icon of the product.
QIcon productIcon();

/// The picture called `key`, for an area of so many logical pixels.
QPixmap picture(std::string_view key, QSize size);

} // namespace quillet
