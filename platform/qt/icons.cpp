#include "platform/qt/icons.h"

#include "window/image_list.h"

#include <QFont>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <array>

namespace quillet {
namespace {

// A tile with a sign on it.
struct Tile {
    const char* key;
    const char16_t* sign;
    QRgb color;
    bool italic = false;
    bool underline = false;
};

constexpr QRgb fileColor = 0xFF2F6DB5;
constexpr QRgb editColor = 0xFF5B6B7A;
constexpr QRgb styleColor = 0xFF333333;
constexpr QRgb keyboardColor = 0xFF8A5A00;
constexpr QRgb countColor = 0xFF2E7D4F;
constexpr QRgb memoryColor = 0xFF7A4B9C;
constexpr QRgb webColor = 0xFF00778A;

// In the order of the image list.
constexpr std::array<Tile, imageList.size()> tiles = {{
    {"Underline", u"U", styleColor, false, true},
    {"Copy", u"\u25EB", editColor},
    {"Cut", u"\u2702", editColor},
    {"Italic", u"I", styleColor, true},
    {"New", u"+", fileColor},
    {"Open", u"\u2191", fileColor},
    {"Paste", u"\u2193", editColor},
    {"Print", u"P", fileColor},
    {"Save", u"S", fileColor},
    {"Bold", u"B", styleColor},
    {"KeyboardRemington", u"R", keyboardColor},
    {"KeyboardInscript", u"I", keyboardColor},
    {"ClearScreen", u"\u00D7", editColor},
    {"Lines", u"\u2261", countColor},
    {"Words", u"W", countColor},
    {"Characters", u"C", countColor},
    {"AddMemory", u"M", memoryColor},
    {"AppendMemory", u"M+", memoryColor},
    {"PasteFromMemory", u"M\u2193", memoryColor},
    {"ClearMemory", u"M\u00D7", memoryColor},
    {"Email", u"@", webColor},
    {"Web", u"W", webColor},
    {"Help", u"?", webColor},
    {"Layout", u"\u2328", keyboardColor},
    {"Convert", u"\u2192", fileColor},
}};

constexpr Tile productTile = {"Product", u"Q", fileColor};

QPixmap drawTile(const Tile& tile, int size) {
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(tile.color));
    const QRectF area(0.5, 0.5, size - 1.0, size - 1.0);
    painter.drawRoundedRect(area, size / 6.0, size / 6.0);
    const QString sign = QString::fromUtf16(tile.sign);
    QFont font;
    font.setPixelSize(std::max(1, size * (sign.size() > 1 ? 5 : 7) / 10));
    font.setBold(!tile.italic);
    font.setItalic(tile.italic);
    font.setUnderline(tile.underline);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(area, Qt::AlignCenter, sign);
    return pixmap;
}

QPixmap drawSplash(QSize size) {
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    const int tileSize = size.height() / 3;
    painter.drawPixmap((size.width() - tileSize) / 2, tileSize / 2,
                       drawTile(productTile, tileSize));
    QFont font;
    font.setPixelSize(size.height() / 6);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor::fromRgba(fileColor));
    const QRect below(0, tileSize * 3 / 2, size.width(), size.height() - tileSize * 3 / 2);
    painter.drawText(below, Qt::AlignCenter, QStringLiteral("Quillet"));
    return pixmap;
}

QIcon tileIcon(const Tile& tile) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64})
        icon.addPixmap(drawTile(tile, size));
    return icon;
}

} // namespace

QIcon toolbarIcon(std::string_view key) {
    const auto* found = std::find_if(tiles.begin(), tiles.end(),
                                     [key](const Tile& tile) { return key == tile.key; });
    return found == tiles.end() ? QIcon() : tileIcon(*found);
}

QIcon productIcon() {
    return tileIcon(productTile);
}

QPixmap picture(std::string_view key, QSize size) {
    if (key == "Splash")
        return drawSplash(size);
    return key == productTile.key ? drawTile(productTile, size.height()) : QPixmap();
}

} // namespace quillet
