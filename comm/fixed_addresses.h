// The addresses that are fixed in the program; they are chosen when it is built.
#pragma once

namespace quillet {

/// The Hindi news website: its start page, and what addresses of its other pages begin with.
extern const char* const newsSite;

/// The relay that mail is sent through, as host or host:port.
extern const char* const mailRelay;

/// The website of this program's makers.
extern const char* const website;

} // namespace quillet
