// Mails of any addresses, texts and bytes: no header but the known ones, and the body as it was.
#include "base/run_time_error.h"
#include "comm/mail_message.h"
#include "fuzz/input.h"

#include <algorithm>

namespace quillet::fuzz {
namespace {

bool isKnown(GlyphView line) {
    constexpr const char* headers[] = {
        "Date: ",    "Message-ID: ",   "From: ",         "To: ",
        "Subject: ", "MIME-Version: ", "Content-Type: ", "Content-Transfer-Encoding: "};
    return line.starts_with(' ') ||
           std::any_of(std::begin(headers), std::end(headers),
                       [&](const char* it) { return line.starts_with(it); });
}

GlyphView takeLine(GlyphView& text) {
    const std::size_t end = text.find(lineBreak);
    check(end != GlyphView::npos, "every line ends in CR LF");
    const GlyphView line = text.substr(0, end);
    text.remove_prefix(end + lineBreak.size());
    check(line.size() <= 998, "no line is too long for a server");
    check(line.find_first_of("\r\n") == GlyphView::npos, "and none has others inside");
    return line;
}

GlyphString decoded(GlyphView text) {
    constexpr GlyphView digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    GlyphString bytes;
    unsigned bits = 0;
    int count = 0;
    while (!text.empty())
        for (const char digit : takeLine(text)) {
            if (digit == '=')
                return bytes;
            bits = bits << 6 | static_cast<unsigned>(digits.find(digit));
            count += 6;
            if (count >= 8)
                bytes += static_cast<char>(bits >> (count -= 8));
        }
    return bytes;
}

void run(Input input) {
    MailMessage mail;
    mail.sender = {std::string(input.text(input.byte())), std::string(input.text(input.byte()))};
    const GlyphView to = input.text(input.byte());
    mail.recipients = splitAddresses(to, input.byte() % 2 == 0 ? to : input.text(20), ";");
    mail.subject = input.text(input.byte());
    mail.date = "now";
    mail.id = "1@here";
    mail.body = input.rest();
    std::string text;
    try {
        text = composeMail(mail);
    } catch (const RunTimeError&) {
        return;
    }
    GlyphView rest = text;
    for (GlyphView line = takeLine(rest); !line.empty(); line = takeLine(rest))
        check(isKnown(line), "every header is a known one");
    check(decoded(rest) == mail.body, "the body is the given one");
}

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::run({data, size});
    return 0;
}
