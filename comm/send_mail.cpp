#include "comm/send_mail.h"

#include "base/run_time_error.h"
#include "comm/fixed_addresses.h"
#include "platform/desktop.h"
#include "platform/input_box.h"
#include "platform/mail_component.h"
#include "platform/main_state.h"
#include "platform/message_box.h"
#include "platform/screen.h"

namespace quillet {
namespace {

constexpr const char* title = "Quillet Email";

// Mail readers show the glyph codes as Latin letters: the note says how to read them.
std::string bodyWith(const EditBox& document) {
    std::string body =
        "This mail is in Devnagari script. You can read it by copying and pasting the message body "
        "in 'Quillet' Devnagari Word Processor. If you don't have the software, you can copy the "
        "message and paste it on the page at ";
    body += newsSite;
    body += "/readhinditext.aspx\r\nHere goes the message:\r\n-----------------------\r\n";
    for (const GlyphView part : document.buffer().spans())
        body += part;
    return body;
}

} // namespace

SendMail::SendMail(MainState& state, const Desktop& desktop)
    : state_(state),
      inputBox_(desktop.inputBox),
      messageBox_(desktop.messageBox),
      screen_(desktop.screen) {}

void SendMail::mnuSendMail_Click() {
    try {
        send();
    } catch (const std::exception&) {
        messageBox_.show({.text = "Sorry! You did not specify a necessary value"});
        screen_.MousePointer(Pointer::Default);
    }
}

void SendMail::send() {
    screen_.MousePointer(Pointer::Hourglass);
    std::string body = bodyWith(state_.txtMain);
    auto mail = state_.mailComponent; // held on to while it is used
    mail->MailOptionFirst(0);
    mail->MailOptionSecond(1);
    mail->AddressDelimiter(";");
    mail->RelayHost(mailRelay);
    const std::string sender = inputBox_.ask("Email address of the sender (yours)", title);
    mail->SenderAddress(sender);
    mail->SenderName(sender);
    const std::string recipient = inputBox_.ask("Email address of the recipient", title);
    if (sender.empty() || recipient.empty())
        throw RunTimeError(ErrorNumber::NecessaryValueMissing);
    mail->RecipientAddress(recipient);
    mail->RecipientName(recipient);
    mail->SubjectText("Mail via Quillet: Devnagari Text Editor");
    mail->BodyText(std::move(body));
    mail->SendMessage();
    mail.reset();
    screen_.MousePointer(Pointer::Default);
    messageBox_.show({.text = "Congratulations! Mail is sent"});
}

} // namespace quillet
