#include "comm/mail_message.h"

#include "base/run_time_error.h"

#include <algorithm>
#include <cstdint>

namespace quillet {
namespace {

std::vector<std::string> splitList(std::string_view list, std::string_view delimiter) {
    std::vector<std::string> entries;
    for (bool more = true; more;) {
        const auto end = delimiter.empty() ? std::string_view::npos : list.find(delimiter);
        const std::string_view entry = list.substr(0, end);
        const auto first = entry.find_first_not_of(' ');
        if (first != std::string_view::npos)
            entries.emplace_back(entry.substr(first, entry.find_last_not_of(' ') + 1 - first));
        more = end != std::string_view::npos;
        list.remove_prefix(more ? end + delimiter.size() : list.size());
    }
    return entries;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char it) { return (it & 0x80) == 0; });
}

void refuseIf(bool isWrong) {
    if (isWrong)
        throw RunTimeError(ErrorNumber::ComponentFailed);
}

// No control character may begin a header of its own.
void checkHeader(std::string_view text) {
    refuseIf(std::any_of(text.begin(), text.end(), [](char it) {
        return static_cast<unsigned char>(it) < ' ' || it == '\x7F';
    }));
}

void checkAddress(const MailAddress& address) {
    checkHeader(address.address);
    checkHeader(address.name);
    refuseIf(address.address.empty() || !isAscii(address.address) ||
             address.address.find_first_of("<>") != std::string::npos);
}

void appendBase64(std::string& to, std::string_view bytes) {
    constexpr const char* digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(bytes.size(), 3))) {
        std::uint32_t group = 0;
        for (std::size_t at = 0; at < 3; ++at)
            group = group << 8 | (at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : 0U);
        for (std::size_t at = 0; at < 4; ++at)
            to += at <= bytes.size() ? digits[group >> (18 - 6 * at) & 0x3F] : '=';
    }
}

// A text of other than ASCII characters: words that fit into a line of 76 columns behind their
// header's name, split between characters.
std::string encodedWords(std::string_view text) {
    constexpr std::size_t most = 39; // bytes, which are 52 digits
    std::string words;
    while (!text.empty()) {
        std::size_t length = std::min(text.size(), most);
        while (length > 1 && length < text.size() && (text[length] & 0xC0) == 0x80)
            --length;
        words += words.empty() ? "=?UTF-8?B?" : "\r\n =?UTF-8?B?";
        appendBase64(words, text.substr(0, length));
        words += "?=";
        text.remove_prefix(length);
    }
    return words;
}

std::string quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\')
            quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

std::string headerAddress(const MailAddress& address) {
    const std::string& name = address.name;
    return (isAscii(name) ? quoted(name) : encodedWords(name)) + " <" + address.address + ">";
}

} // namespace

std::vector<MailAddress> splitAddresses(std::string_view addresses, std::string_view names,
                                        std::string_view delimiter) {
    const auto split = splitList(addresses, delimiter);
    const auto splitNames = splitList(names, delimiter);
    const auto& ownNames = splitNames.size() == split.size() ? splitNames : split;
    std::vector<MailAddress> result;
    for (std::size_t i = 0; i < split.size(); ++i)
        result.push_back({split[i], ownNames[i]});
    return result;
}

std::string composeMail(const MailMessage& mail) {
    refuseIf(mail.recipients.empty());
    checkAddress(mail.sender);
    std::for_each(mail.recipients.begin(), mail.recipients.end(), checkAddress);
    for (const std::string* text : {&mail.subject, &mail.date, &mail.id})
        checkHeader(*text);

    std::string recipients;
    for (const MailAddress& recipient : mail.recipients)
        recipients += (recipients.empty() ? "" : ",\r\n ") + headerAddress(recipient);
    std::string text =
        "Date: " + mail.date + "\r\nMessage-ID: <" + mail.id +
        ">\r\nFrom: " + headerAddress(mail.sender) + "\r\nTo: " + recipients +
        "\r\nSubject: " + (isAscii(mail.subject) ? mail.subject : encodedWords(mail.subject)) +
        "\r\nMIME-Version: 1.0"
        "\r\nContent-Type: text/plain; charset=windows-1252"
        "\r\nContent-Transfer-Encoding: base64\r\n\r\n";
    constexpr std::size_t bytesPerLine = 57; // 76 columns
    text.reserve(text.size() + (mail.body.size() / bytesPerLine + 1) * 78);
    for (std::size_t at = 0; at < mail.body.size(); at += bytesPerLine) {
        appendBase64(text, mail.body.substr(at, bytesPerLine));
        text += "\r\n";
    }
    return text;
}

} // namespace quillet
