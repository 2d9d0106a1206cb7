// A mail as it goes to the relay.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet {

struct MailAddress {
    std::string address;
    std::string name; // UTF-8
};

struct MailMessage {
    MailAddress sender;
    std::vector<MailAddress> recipients;
    std::string subject;   // UTF-8
    std::string_view body; // Windows-1252
    std::string date;      // as in the header
    std::string id;        // without its angle brackets
};

/// The addresses of a list with their names, without the blanks around them and empty entries.
/// Where there are not as many names, each address is its own.
std::vector<MailAddress> splitAddresses(std::string_view addresses, std::string_view names,
                                        std::string_view delimiter);

/// The whole text with its headers, in short lines of ASCII that end in CR LF: every server takes
/// it, and the decoded body is the given one byte for byte. Fails where a header would not be
/// what it says: on control characters anywhere outside the body, on addresses that are empty,
/// not ASCII or hold an angle bracket, and without a recipient.
std::string composeMail(const MailMessage& mail);

} // namespace quillet
