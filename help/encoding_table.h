// What each byte of a document shows, as fonts/kruti-dev-encoding.tsv says.
#pragma once

#include <array>
#include <istream>
#include <string>

namespace quillet::help {

/// What one byte shows. Bytes that the table leaves out show nothing.
struct Shown {
    std::string unicode; // as UTF-8
    std::string role;    // as the table names it, such as "consonant" or "sign-below"
};

using EncodingTable = std::array<Shown, 256>;

/// Fails with `std::runtime_error` at a row that it cannot read.
EncodingTable readEncodingTable(std::istream& table);

} // namespace quillet::help
