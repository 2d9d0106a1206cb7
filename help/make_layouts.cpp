// Writes the page of the keyboard layouts: a template, with pictures and tables in the places that
// it names on lines of their own.
//
//     make_layouts ENCODING.tsv TEMPLATE PAGE
#include "help/keyboard.h"

#include <algorithm>
#include <array>
#include <exception>
#include <fstream>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>

namespace quillet::help {
namespace {

struct Part {
    std::string_view line;
    const Layout& layout;
    void (*write)(std::ostream&, const Layout&, const EncodingTable&);
};

constexpr std::array<Part, 4> parts = {{
    {"@inscript picture@", inscript, writePicture},
    {"@inscript tables@", inscript, writeTables},
    {"@old style picture@", oldStyle, writePicture},
    {"@old style tables@", oldStyle, writeTables},
}};

std::ifstream open(const char* path) {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error(std::string("cannot read ") + path);
    return file;
}

void writePage(std::istream& source, const EncodingTable& table, std::ostream& page) {
    for (std::string line; std::getline(source, line);) {
        const auto* part = std::find_if(parts.begin(), parts.end(),
                                        [&](const Part& each) { return each.line == line; });
        if (part != parts.end())
            part->write(page, part->layout, table);
        else
            page << line << '\n';
    }
}

void run(std::span<char*> arguments) {
    if (arguments.size() != 4)
        throw std::runtime_error("usage: make_layouts ENCODING.tsv TEMPLATE PAGE");
    std::ifstream encoding = open(arguments[1]);
    std::ifstream source = open(arguments[2]);
    std::ofstream page(arguments[3]);
    writePage(source, readEncodingTable(encoding), page);
    page.close();
    if (!page)
        throw std::runtime_error(std::string("cannot write ") + arguments[3]);
}

} // namespace
} // namespace quillet::help

int main(int argc, char* argv[]) {
    try {
        quillet::help::run({argv, static_cast<std::size_t>(argc)});
    } catch (const std::exception& error) {
        std::cerr << "make_layouts: " << error.what() << '\n';
        return 1;
    }
}
