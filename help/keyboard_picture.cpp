#include "help/keyboard.h"

#include <cctype>

namespace quillet::help {
namespace {

constexpr int pitch = 60;
constexpr int gap = 4;
constexpr int width = 15 * pitch;
constexpr int quarters = 4;

// Inside a key: its glyphs at the left, what is printed on it at the right, Shift's above.
constexpr int glyphX = 13;
constexpr int shiftedY = 23;
constexpr int plainY = 48;
constexpr int markX = 7;
constexpr int markRise = 7; // above the line of the glyphs

struct Place {
    int x;
    int y;
    int width;
};

void writeCap(std::ostream& page, const Place& key, const char* style) {
    page << "<rect class=\"" << style << "\" x=\"" << key.x + gap / 2 << "\" y=\""
         << key.y + gap / 2 << "\" width=\"" << key.width - gap << "\" height=\"" << pitch - gap
         << "\" rx=\"7\"/>";
}

void writeNamed(std::ostream& page, const Place& key, const char* name) {
    writeCap(page, key, "named");
    page << "<text class=\"name\" x=\"" << key.x + key.width / 2 << "\" y=\"" << key.y + 35 << "\">"
         << name << "</text>\n";
}

void writeLatin(std::ostream& page, const Place& key, int y, char character) {
    page << "<text class=\"latin\" x=\"" << key.x + key.width - 9 << "\" y=\"" << key.y + y << "\">"
         << escaped(character) << "</text>";
}

void writeGlyphs(std::ostream& page, const Place& key, int y, GlyphView glyphs,
                 const EncodingTable& table) {
    const int line = key.y + y;
    if (isEmpty(glyphs)) {
        page << "<rect class=\"empty\" x=\"" << key.x + glyphX << "\" y=\"" << line - 13
             << "\" width=\"14\" height=\"13\" rx=\"2\"/>";
        return;
    }
    if (glyphs.size() > 1)
        page << "<circle class=\"two\" cx=\"" << key.x + markX << "\" cy=\"" << line - markRise
             << "\" r=\"2.5\"/>";
    page << "<text class=\"glyphs\" x=\"" << key.x + glyphX << "\" y=\"" << line << "\">"
         << drawn(glyphs, table, "tspan") << "</text>";
}

void writeKey(std::ostream& page, const Place& key, char plain, char shifted, const Layout& layout,
              const EncodingTable& table) {
    writeCap(page, key, "key");
    writeGlyphs(page, key, shiftedY, layout.glyphs(shifted), table);
    writeGlyphs(page, key, plainY, layout.glyphs(plain), table);
    writeLatin(page, key, shiftedY - 2, shifted);
    if (std::islower(static_cast<unsigned char>(plain)) == 0)
        writeLatin(page, key, plainY - 2, plain);
    page << '\n';
}

void writeRow(std::ostream& page, int y, const KeyRow& row, const Layout& layout,
              const EncodingTable& table) {
    int x = row.beforeWidth * pitch / quarters;
    if (x > 0)
        writeNamed(page, {0, y, x}, row.before);
    const bool isOpen = row.after[0] == '\0';
    for (std::size_t key = 0; key < row.plain.size(); ++key) {
        const bool isLast = key + 1 == row.plain.size();
        const int keyWidth = isLast && isOpen ? width - x : pitch;
        writeKey(page, {x, y, keyWidth}, row.plain[key], row.shifted[key], layout, table);
        x += keyWidth;
    }
    if (!isOpen)
        writeNamed(page, {x, y, width - x}, row.after);
}

} // namespace

void writePicture(std::ostream& page, const Layout& layout, const EncodingTable& table) {
    constexpr int rows = static_cast<int>(keyRows.size());
    page << "<svg class=\"keyboard\" viewBox=\"0 0 " << width << ' ' << (rows + 1) * pitch
         << "\" role=\"img\" aria-label=\"The " << layout.name
         << " layout on a US keyboard. The tables tell the same in words.\">\n";
    for (int row = 0; row < rows; ++row)
        writeRow(page, row * pitch, keyRows.at(static_cast<std::size_t>(row)), layout, table);
    writeNamed(page, {4 * pitch, rows * pitch, 6 * pitch}, "space");
    page << "</svg>\n";
}

} // namespace quillet::help
