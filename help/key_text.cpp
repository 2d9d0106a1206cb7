#include "help/key_text.h"

#include "engine/inscript_table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>
#include <string_view>

namespace quillet::help {
namespace {

using namespace std::string_view_literals;

char glyphOf(std::string_view decimal) {
    return static_cast<char>(std::stoi(std::string(decimal)));
}

GlyphString inscriptGlyphs(char typed) {
    const InscriptKey& key = inscriptKey(typed);
    GlyphString glyphs(1, glyphOf(key.glyph));
    if (!key.second.empty())
        glyphs += glyphOf(key.second);
    return glyphs;
}

GlyphString oldStyleGlyphs(char typed) {
    return GlyphString(1, typed);
}

// What two glyphs write together: vowels, and consonants with their right-hand stroke.
struct Joint {
    std::string_view parts;
    std::string_view whole;
};

constexpr std::array<Joint, 5> joints = {{
    {"अ\u093E"sv, "आ"sv},
    {"अ\u094B"sv, "ओ"sv},
    {"अ\u094C"sv, "औ"sv},
    {"ए\u0947"sv, "ऐ"sv},
    {"\u094D\u200D\u093E"sv, ""sv},
}};

enum class Base { None, Before, Behind };

struct Role {
    std::string_view name;
    const char* kind;
    Base base = Base::None;
};

constexpr std::array<Role, 13> roles = {{
    {"consonant", "letter"},
    {"vowel", "vowel"},
    {"half", "half form"},
    {"ligature", "ligature"},
    {"digit", "digit"},
    {"punctuation", "mark"},
    {"latin", "Latin sign"},
    {"stroke", "sign", Base::Before},
    {"sign-above", "sign", Base::Before},
    {"sign-below", "sign", Base::Before},
    {"sign-right", "sign", Base::Before},
    {"sign-left", "sign", Base::Behind},
    {"reph", "reph", Base::Before},
}};

const Role& roleOf(GlyphView glyphs, const EncodingTable& table) {
    const std::string& name = table.at(glyphCode(glyphs.front())).role;
    const auto* found = std::find_if(roles.begin(), roles.end(),
                                     [&](const Role& role) { return role.name == name; });
    if (found == roles.end())
        throw std::runtime_error("no kind of key for the role \"" + name + '"');
    return *found;
}

// The font has every byte at U+F000 plus the byte as well, where no text engine takes it for
// something else.
std::string reference(char glyph) {
    std::array<char, 10> text{};
    std::snprintf(text.data(), text.size(), "&#xF0%02X;", glyphCode(glyph));
    return text.data();
}

} // namespace

const Layout inscript{"inscript", "Inscript", inscriptGlyphs};
const Layout oldStyle{"old-style", "Old Style", oldStyleGlyphs};

bool isEmpty(GlyphView glyphs) {
    return glyphs == " ";
}

std::string unicodeOf(GlyphView glyphs, const EncodingTable& table) {
    std::string text;
    for (const char glyph : glyphs)
        text += table.at(glyphCode(glyph)).unicode;
    for (const Joint& joint : joints)
        if (const auto at = text.find(joint.parts); at != text.npos)
            text.replace(at, joint.parts.size(), joint.whole);
    return text;
}

std::string kindOf(GlyphView glyphs, const EncodingTable& table) {
    if (isEmpty(glyphs))
        return "space";
    return glyphs.size() > 1 ? "two glyphs" : roleOf(glyphs, table).kind;
}

std::string drawn(GlyphView glyphs, const EncodingTable& table, const std::string& element) {
    const std::string ma =
        "<" + element + " class=\"base\">" + reference('e') + "</" + element + ">";
    const Base base = roleOf(glyphs, table).base;
    std::string markup;
    for (const char glyph : glyphs)
        markup += reference(glyph);
    return (base == Base::Before ? ma : "") + markup + (base == Base::Behind ? ma : "");
}

std::string escaped(char character) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    default:
        return {character};
    }
}

} // namespace quillet::help
