// The mail command step by step, and the text of the mail that it sends.
#include "base/run_time_error.h"
#include "comm/fixed_addresses.h"
#include "comm/mail_message.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <array>

namespace quillet {
namespace {

TEST(SendMail, AsksSetsEverythingAndSends) {
    const GlyphString half = "\xD8k\0\xAD\r\n\n.\r\n"s;
    TestWindow form;
    for (int part = 0; part < 2; ++part) // text on both sides of the gap
        form.txtMain.SelText(half);
    form.txtMain.SelStart(form.txtMain.length() / 2);
    form.txtMain.catchUp();
    form.desktop.inputs = {"me@here", "you@there"};
    form.mnuSendMail_Click();
    EXPECT_EQ(joined(form.desktop.calls),
              "hourglass|MailOptionFirst 0|MailOptionSecond 1|AddressDelimiter ;|RelayHost "s +
                  mailRelay +
                  "|input Email address of the sender (yours) [] Quillet Email"
                  "|SenderAddress me@here|SenderName me@here"
                  "|input Email address of the recipient [] Quillet Email"
                  "|RecipientAddress you@there|RecipientName you@there"
                  "|SubjectText Mail via Quillet: Devnagari Text Editor"
                  "|BodyText This mail is in Devnagari script. You can read it by copying and "
                  "pasting the message body in 'Quillet' Devnagari Word Processor. If you don't "
                  "have the software, you can copy the message and paste it on the page at " +
                  newsSite +
                  "/readhinditext.aspx\r\nHere goes the message:\r\n-----------------------\r\n" +
                  half + half +
                  "|SendMessage |default pointer|ask Congratulations! Mail is sent [OK] "
                  "Quillet1.0|");
    EXPECT_FALSE(form.textboxused);
}

TEST(SendMail, AnEmptyAddressIsToldAfterBothQuestions) {
    for (const char* sender : {"", "me@here"}) {
        TestWindow form;
        form.desktop.inputs = {sender, *sender == '\0' ? "you@there" : ""};
        form.mnuSendMail_Click();
        EXPECT_TRUE(form.desktop.inputs.empty());
        EXPECT_TRUE(joined(form.desktop.calls)
                        .ends_with("|ask Sorry! You did not specify a necessary value [OK] "
                                   "Quillet1.0|default pointer|"));
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
    const std::pair<const char*, MailMessage> rows[] = {
        {"no recipient", {{"s@h", ""}, {}, "", "", "", ""}},
        {"no sender", {{"", ""}, {{"r@h", ""}}, "", "", "", ""}},
        {"a line feed in the sender", {{"s@h\nBcc: x@h", ""}, {{"r@h", ""}}, "", "", "", ""}},
        {"a carriage return in a name", {{"s@h", "\r"}, {{"r@h", ""}}, "", "", "", ""}},
        {"a tab in the recipient", {{"s@h", ""}, {{"r@h", ""}, {"\t", ""}}, "", "", "", ""}},
        {"a delete in the subject", {{"s@h", ""}, {{"r@h", ""}}, "\x7F", "", "", ""}},
        {"an address outside ASCII", {{"ä@h", ""}, {{"r@h", ""}}, "", "", "", ""}},
        {"the end of the address", {{"s@h> X", ""}, {{"r@h", ""}}, "", "", "", ""}},
    };
    for (const auto& [name, mail] : rows)
        EXPECT_THROW(composeMail(mail), RunTimeError) << name;
}

TEST(MailMessage, SplitsListsAtTheDelimiter) {
    const std::array<const char*, 4> rows[] = {
        {"", "", ";", ""},
        {" ; ;", "x", ";", ""},
        {"a;", "a;", ";", "a=a|"},
        {"a; b c ;;d", "a; b c ;;d", ";", "a=a|b c=b c|d=d|"},
        {"a;b", "x;y", ";", "a=x|b=y|"},
        {"a;b", "x", ";", "a=a|b=b|"},
        {"a;b", "x", "", "a;b=x|"},
    };
    for (const auto& [addresses, names, delimiter, expected] : rows) {
        std::string result;
        for (const auto& [address, name] : splitAddresses(addresses, names, delimiter))
            result.append(address).append("=").append(name).append("|");
        EXPECT_EQ(result, expected) << addresses;
    }
}

} // namespace
} // namespace quillet
