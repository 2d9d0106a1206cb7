// Renders the sheet that shows the fonts: every line of sheet.tsv in each family.
#include "base/windows1252.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr int columnWidth = 660;
constexpr int margin = 16;
constexpr char16_t privateUse = 0xF000; // plus the byte: the way to a glyph in every context

const auto families = std::to_array<QString>({"Quillet Devanagari", "Quillet Devanagari Serif"});

struct Line {
    int size;
    QString style;
    QString text;
};

bool addFonts(const QDir& folder) {
    const QStringList names = folder.entryList({"*.otf"});
    return !names.isEmpty() && std::all_of(names.begin(), names.end(), [&](const QString& name) {
        return QFontDatabase::addApplicationFont(folder.filePath(name)) >= 0;
    });
}

// The table has each byte as its Windows-1252 character.
QString glyphs(const QString& characters) {
    QString text;
    for (const QChar character : characters)
        text += QChar(privateUse + quillet::byteOfUnicode(character.unicode()).value_or('?'));
    return text;
}

QList<Line> readLines(const QString& path) {
    QFile file(path);
    QList<Line> lines;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return lines;
    file.readLine(); // the heads of the columns
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine().trimmed()).split('\t');
        if (cells.size() == 3)
            lines.append({cells[0].toInt(), cells[1], glyphs(cells[2])});
    }
    return lines;
}

QFont fontOf(const Line& line, const QString& family) {
    QFont font(family);
    font.setPixelSize(line.size);
    font.setBold(line.style == "bold");
    font.setItalic(line.style == "slanted");
    font.setKerning(false);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

int heightOf(const Line& line) {
    return QFontMetrics(fontOf(line, families[0])).height() + 4;
}

QImage render(const QList<Line>& lines) {
    int height = 2 * margin;
    for (const Line& line : lines)
        height += heightOf(line);
    QImage sheet(columnWidth * static_cast<int>(families.size()), height,
                 QImage::Format_Grayscale8);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    int top = margin;
    for (const Line& line : lines) {
        for (std::size_t column = 0; column < families.size(); ++column) {
            painter.setFont(fontOf(line, families[column]));
            const int left = margin + columnWidth * static_cast<int>(column);
            painter.drawText(left, top + painter.fontMetrics().ascent(), line.text);
        }
        top += heightOf(line);
    }
    return sheet;
}

} // namespace

// Arguments: the folder of the fonts, the table, the picture to write.
int main(int count, char** arguments) {
    const QGuiApplication application(count, arguments);
    const QStringList paths = QGuiApplication::arguments();
    if (paths.size() != 4 || !addFonts(QDir(paths[1]))) {
        std::fputs("Usage: render_sheet FONTS TABLE PICTURE\n", stderr);
        return 2;
    }
    const QList<Line> lines = readLines(paths[2]);
    if (lines.isEmpty() || !QDir().mkpath(QFileInfo(paths[3]).path()) ||
        !render(lines).save(paths[3])) {
        std::fputs("The table cannot be read or the picture not be written.\n", stderr);
        return 1;
    }
    return 0;
}
