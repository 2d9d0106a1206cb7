// The mail command step by step, and the text of the mail that it sends.
#include "base/run_time_error.h"
#include "comm/fixed_addresses.h"
#include "comm/mail_message.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillet {
namespace {

using Calls = std::vector<std::string>;

constexpr const char* sorry = "ask Sorry! You did not specify a necessary value [OK] Quillet1.0";

const std::string note =
    "This mail is in Devnagari script. You can read it by copying and pasting the message body in "
    "'Quillet' Devnagari Word Processor. If you don't have the software, you can copy the message "
    "and paste it on the page at " +
    std::string(newsSite) +
    "/readhinditext.aspx\r\nHere goes the message:\r\n-----------------------\r\n";

// All calls of a command that goes well.
Calls allCalls(const std::string& document) {
    return {"hourglass",
            "MailOptionFirst 0",
            "MailOptionSecond 1",
            "AddressDelimiter ;",
            std::string("RelayHost ") + mailRelay,
            "input Email address of the sender (yours) [] Quillet Email",
            "SenderAddress me@here",
            "SenderName me@here",
            "input Email address of the recipient [] Quillet Email",
            "RecipientAddress you@there",
            "RecipientName you@there",
            "SubjectText Mail via Quillet: Devnagari Text Editor",
            "BodyText " + note + document,
            "SendMessage ",
            "default pointer",
            "ask Congratulations! Mail is sent [OK] Quillet1.0"};
}

TEST(SendMail, AsksSetsEverythingAndSends) {
    for (const std::string& document : {GlyphString(), GlyphString("\xD8k\0\xAD\r\n\n.\r\n", 9)}) {
        TestWindow form;
        form.txtMain.Text(document);
        form.txtMain.SelStart(form.txtMain.length() / 2);
        form.txtMain.SelText(document); // text on both sides of the gap
        const GlyphString text = form.txtMain.Text();
        form.desktop.inputs = {"me@here", "you@there"};
        form.mnuSendMail_Click();
        EXPECT_EQ(form.desktop.calls, allCalls(text));
        EXPECT_TRUE(form.txtMain.Text() == text && !form.textboxused);
    }
}

TEST(SendMail, AnEmptyAddressIsToldAfterBothQuestions) {
    const struct {
        std::deque<std::string> inputs;
        const char* last; // asked of the component, before the message
    } rows[] = {
        {{}, "SenderName "},
        {{"", "you@there"}, "SenderName "},
        {{"me@here", ""}, "SenderName me@here"},
        {{" ", " "}, "SendMessage "}, // not empty: the component decides
    };
    for (const auto& row : rows) {
        TestWindow form;
        Calls& calls = form.desktop.calls;
        form.desktop.inputs = row.inputs;
        form.desktop.failingMailCall = "SendMessage";
        form.mnuSendMail_Click();
        std::erase_if(calls, [](const std::string& it) { return it.starts_with("input"); });
        EXPECT_EQ(form.desktop.inputs.size(), 0U);
        EXPECT_EQ(Calls(calls.end() - 3, calls.end()), (Calls{row.last, sorry, "default pointer"}));
    }
}

TEST(SendMail, EveryFailureOfTheComponentEndsInTheSameWay) {
    int failures = 0;
    for (const std::string& step : allCalls("")) {
        const std::string call = step.substr(0, step.find(' '));
        if (call == "input" || call == "ask" || call == "hourglass" || call == "default")
            continue;
        TestWindow form;
        form.desktop.inputs = {"me@here", "you@there"};
        form.desktop.failingMailCall = call;
        form.mnuSendMail_Click();
        Calls expected = allCalls("");
        expected.erase(std::find(expected.begin(), expected.end(), step) + 1, expected.end());
        expected.insert(expected.end(), {sorry, "default pointer"});
        EXPECT_EQ(form.desktop.calls, expected) << call;
        EXPECT_EQ(form.mailComponent.use_count(), 1) << call;
        ++failures;
    }
    EXPECT_EQ(failures, 11);
    EXPECT_EQ(RunTimeError(ErrorNumber::NecessaryValueMissing).number(), 22001);
}

TEST(SendMail, EachLoadOfTheWindowMakesTheComponentAnew) {
    TestWindow form;
    form.unload();
    form.show();
    form.show();
    EXPECT_EQ(form.desktop.calls, Calls{"make mail component"});
}

std::string decoded(std::string_view base64) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char digit : base64) {
        if (digits.find(digit) == std::string_view::npos)
            continue;
        bits = bits << 6 | static_cast<std::uint32_t>(digits.find(digit));
        count += 6;
        if (count >= 8)
            bytes.push_back(static_cast<char>(bits >> (count -= 8) & 0xFF));
    }
    return bytes;
}

TEST(MailMessage, CarriesEveryByteInShortLinesOfAscii) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    const std::string bodies[] = {"", "a", "ab", "abc", std::string(57, '.'), "\r\n.\r\n", all};
    for (const std::string& body : bodies) {
        const std::string text = composeMail({{"s@h", "s"}, {{"r@h", "r"}}, "t", body, "d", "i"});
        const auto end = text.find("\r\n\r\n") + 4;
        EXPECT_EQ(decoded(std::string_view(text).substr(end)), body);
        EXPECT_EQ((text.size() - end) % 2, 0U);
        EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
        for (std::size_t at = 0; at < text.size(); at = text.find("\r\n", at) + 2)
            EXPECT_LE(text.find("\r\n", at) - at, 76U);
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char it) { return it > 0; }));
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'),
                  std::count(text.begin(), text.end(), '\r'));
    }
}

TEST(MailMessage, HasItsHeaders) {
    const std::string longName = "नमस्ते दुनिया नमस्ते";
    const std::string text = composeMail({{"s@h", "a \"b\\c"},
                                          {{"r@h", "r"}, {"q@h", longName}},
                                          "Räder",
                                          "abcd",
                                          "1 Jan 2000 00:00:00 +0000",
                                          "i@h"});
    EXPECT_EQ(text, "Date: 1 Jan 2000 00:00:00 +0000\r\n"
                    "Message-ID: <i@h>\r\n"
                    "From: \"a \\\"b\\\\c\" <s@h>\r\n"
                    "To: \"r\" <r@h>,\r\n"
                    " =?UTF-8?B?4KSo4KSu4KS44KWN4KSk4KWHIOCkpuClgeCkqOCkv+Ckr+CkviA=?=\r\n"
                    " =?UTF-8?B?4KSo4KSu4KS44KWN4KSk4KWH?= <q@h>\r\n"
                    "Subject: =?UTF-8?B?UsOkZGVy?=\r\n"
                    "MIME-Version: 1.0\r\n"
                    "Content-Type: text/plain; charset=windows-1252\r\n"
                    "Content-Transfer-Encoding: base64\r\n\r\n"
                    "YWJjZA==\r\n");
}

TEST(MailMessage, RefusesWhatNoHeaderCanHold) {
    const struct {
        const char* name;
        MailMessage mail;
    } rows[] = {
        {"no recipient", {{"s@h", ""}, {}, "", "", "", ""}},
        {"no sender", {{"", ""}, {{"r@h", ""}}, "", "", "", ""}},
        {"a line feed in the sender", {{"s@h\nBcc: x@h", ""}, {{"r@h", ""}}, "", "", "", ""}},
        {"a carriage return in a name", {{"s@h", "\r"}, {{"r@h", ""}}, "", "", "", ""}},
        {"a tab in the recipient", {{"s@h", ""}, {{"r@h", ""}, {"\t", ""}}, "", "", "", ""}},
        {"a delete in the subject", {{"s@h", ""}, {{"r@h", ""}}, "\x7F", "", "", ""}},
        {"a line feed in the date", {{"s@h", ""}, {{"r@h", ""}}, "", "", "\n", ""}},
        {"a line feed in the identity", {{"s@h", ""}, {{"r@h", ""}}, "", "", "", "\n"}},
        {"an address outside ASCII", {{"ä@h", ""}, {{"r@h", ""}}, "", "", "", ""}},
        {"the end of the address", {{"s@h> X", ""}, {{"r@h", ""}}, "", "", "", ""}},
    };
    for (const auto& row : rows)
        EXPECT_THROW(composeMail(row.mail), RunTimeError) << row.name;
    EXPECT_NO_THROW(composeMail({{" ", "ä"}, {{"r r", ""}}, "ä", "\n", "", ""}));
}

TEST(MailMessage, SplitsListsAtTheDelimiter) {
    const struct {
        const char* addresses;
        const char* names;
        const char* delimiter;
        const char* result;
    } rows[] = {
        {"", "", ";", ""},
        {"a", "x", ";", "a=x|"},
        {" ; ;", "x", ";", ""},
        {"a;", "a;", ";", "a=a|"},
        {"a; b c ;;d", "a; b c ;;d", ";", "a=a|b c=b c|d=d|"},
        {"a;b", "x;y", ";", "a=x|b=y|"},
        {"a;b", "x", ";", "a=a|b=b|"},
        {"a;b", "x", "", "a;b=x|"},
        {"a::b", "", "::", "a=a|b=b|"},
    };
    for (const auto& row : rows) {
        std::string result;
        for (const auto& [address, name] : splitAddresses(row.addresses, row.names, row.delimiter))
            result.append(address).append("=").append(name).append("|");
        EXPECT_EQ(result, row.result) << row.addresses;
    }
}

} // namespace
} // namespace quillet
