#include "help/encoding_table.h"

#include <cstdint>
#include <sstream>
#include <stdexcept>

namespace quillet::help {
namespace {

// No character of the table lies beyond the basic plane.
std::string utf8(std::uint32_t character) {
    const auto tail = [](std::uint32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (character < 0x80)
        return {static_cast<char>(character)};
    if (character < 0x800)
        return {static_cast<char>(0xC0 | (character >> 6)), tail(character)};
    return {static_cast<char>(0xE0 | (character >> 12)), tail(character >> 6), tail(character)};
}

// Of such as "U+0915 U+094D"; "-" stands for none.
std::string textOf(const std::string& codes) {
    std::string text;
    std::istringstream in(codes);
    for (std::string code; in >> code && code != "-";)
        text += utf8(static_cast<std::uint32_t>(std::stoul(code.substr(2), nullptr, 16)));
    return text;
}

void readRow(const std::string& line, EncodingTable& table) {
    std::istringstream in(line);
    std::string byte;
    std::string character;
    std::string unicode;
    std::string role;
    for (std::string* field : {&byte, &character, &unicode, &role})
        std::getline(in, *field, '\t');
    if (role.empty())
        throw std::runtime_error("not a row of the encoding: " + line);
    table.at(std::stoul(byte, nullptr, 16)) = {textOf(unicode), role};
}

} // namespace

EncodingTable readEncodingTable(std::istream& table) {
    EncodingTable read;
    std::string line;
    std::getline(table, line); // the heading
    while (std::getline(table, line))
        readRow(line, read);
    return read;
}

} // namespace quillet::help
