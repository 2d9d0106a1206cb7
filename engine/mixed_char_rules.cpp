#include "engine/mixed_char_rules.h"

#include <array>

namespace quillet {
namespace {

// clang-format off
constexpr auto rules = std::to_array<MixedCharRule>({
    // Half forms: a consonant loses its halant, and its stroke where it has one.
    {"d~", "D"},
    {"[k~", "["},
    {"x~", "X"},
    {"?k~", "?"},
    {"p~", "P"},
    {"t~", "T"},
    {">~", "\xD6"},
    {"i~", "I"},
    {"Q~", "\xB6"},
    {"c~", "C"},
    {"Hk~", "H"},
    {"e~", "E"},
    {".k~", "."},
    {"r~", "R"},
    {"Fk~", "F"},
    {"/k~", "/"},
    {"u~", "U"},
    {";~", "\xB8"},
    {"y~", "Y"},
    {"o~", "O"},
    {"'k~", "'"},
    {"\"k~", "\""},
    {"g~", "\xBA"},
    {"{k~", "{"},
    {"=~", "\xAB"},
    {"l~", "L"},
    {"Z~", "~Z"},

    // Ra after a consonant becomes a sign below it; with u and uu it has glyphs of its own.
    {"jw", ":"},
    {"jq", "#"},
    {"Lj", "lz"},
    {"Dj", "\xD8"},
    {"[j", "\xA3"},
    {"Xj", "xz"},
    {"?j", "?kz"},
    {"Ij", "\xC1"},
    {"\xB6j", "\xDD"},
    {"Cj", "cz"},
    {"Hj", "Hkz"},
    {"Ej", "ez"},
    {"Pj", "pz"},
    {"N~j", "N\xAA"},
    {"Tj", "tz"},
    {"\xD6j", ">z"},
    {"V~j", "V\xAA"},
    {"B~j", "B\xAA"},
    {"M~j", "M\xAA"},
    {"<~j", "<\xAA"},
    {".j", ".kz"},
    {"Rj", "="},
    {"Fj", "Fkz"},
    {"n~j", "\xE6"},
    {"/j", "/kz"},
    {"Uj", "uz"},
    {"'j", "J"},
    {"\"j", "\"kz"},
    {"{j", "{kz"},
    {"K~j", "Kz"},
    {"\xB8j", ";z"},
    {"Yj", "yz"},
    {"Oj", "oz"},

    // Ra and halant before a consonant become the reph behind it.
    {"j~j", "jZ"},
    {"j~d", "dZ"},
    {"j~[k", "[kZ"},
    {"j~x", "xZ"},
    {"j~?k", "?kZ"},
    {"j~p", "pZ"},
    {"j~N", "NZ"},
    {"j~t", "tZ"},
    {"j~>", ">Z"},
    {"j~r", "rZ"},
    {"j~Fk", "FkZ"},
    {"j~n", "nZ"},
    {"j~/k", "/kZ"},
    {"j~u", "uZ"},
    {"j~i", "iZ"},
    {"j~Q", "QZ"},
    {"j~c", "cZ"},
    {"j~Hk", "HkZ"},
    {"j~e", "eZ"},
    {"j~V", "VZ"},
    {"j~B", "BZ"},
    {"j~M", "MZ"},
    {"j~<", "<Z"},
    {"j~.k", ".kZ"},
    {"j~'k", "'kZ"},
    {"j~\"", "\"Z"},
    {"j~l", "lZ"},
    {"j~g", "gZ"},
    {"j~;", ";Z"},
    {"j~y", "yZ"},
    {"j~o", "oZ"},
    {"j~{k", "{kZ"},
    {"j~=", "=Z"},
    {"j~K", "KZ"},
    {"j~v", "vZ"},

    // The reph goes behind the signs at the right of its consonant.
    {"Zk", "kZ"},
    {"Z\xA8", "\xA8Z"},
    {"Zh", "hZ"},
    {"Zs", "sZ"},
    {"ZS", "SZ"},
    {"Z\xA9", "\xA9Z"},

    // Ligatures of two consonants.
    {"Hn", "\x98"},
    {"Uu", "\xE9"},
    {"\xBA;", "\xE1"},
    {"g`", "\xE2"},
    {"Dr", "\xE4"},
    {"Dd", "\xF4"},
    {"\xBAu", "\xE0"},
    {"\272e", "\xE3"}, // octal, because in hex the "e" would count as a digit
    {"D\"k", "{k"},
    {"n~;", "|"},
    {"n~/k", ")"},
    {"n~o", "}"},
    {"n~n", "\xCC"},
    {"Rr", "\x9Fk"},
    {"M~M", "\xCF"},
    {"M~<", "\xD4"},
    {"V~V", "\xCD"},
    {"V~B", "\xCE"},
    {"n~e", "\xF9"},

    // Single cases; the last eight put the long-ii sign behind the stroke.
    {"oj~YM", "oYMZ"},
    {"dff", "fd "}, // three glyphs for three: the second sign gives way to a space
    {"'~k", "'"},
    {"Hhk", "Hkh"},
    {"'hk", "'kh"},
    {"Fhk", "Fkh"},
    {"/hk", "/kh"},
    {"[hk", "[kh"},
    {".hk", ".kh"},
    {"\"hk", "\"kh"},
    {"?hk", "?kh"},
});
// clang-format on

static_assert(rules.size() == 131);

} // namespace

std::span<const MixedCharRule> mixedCharRules() {
    return rules;
}

} // namespace quillet
