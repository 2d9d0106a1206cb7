// Mail over SMTP, with libcurl.
#pragma once

#include "comm/mail_message.h"
#include "platform/mail_component.h"

#include <chrono>

namespace quillet {

/// How long a relay may take: to be reached and greet, and for everything.
struct MailLimits {
    std::chrono::milliseconds connecting = std::chrono::seconds(10);
    std::chrono::milliseconds whole = std::chrono::seconds(60);
};

/// While it sends, windows are painted but take no input; see `BusyInput`. Where the relay offers
/// TLS the mail goes that way, and only to a relay on this machine also without a certificate
/// that can be verified: in plain then.
class CurlMail : public CKpoSendMail {
  public:
    explicit CurlMail(MailLimits limits = {}) : limits_(limits) {}

    void MailOptionFirst(int /*option*/) override {}  // has no meaning here
    void MailOptionSecond(int /*option*/) override {} // nor this one
    void AddressDelimiter(std::string delimiter) override { delimiter_ = std::move(delimiter); }
    void RelayHost(std::string host) override { relay_ = std::move(host); }
    void SenderAddress(std::string address) override { sender_.address = std::move(address); }
    void SenderName(std::string name) override { sender_.name = std::move(name); }
    void RecipientAddress(std::string addresses) override { recipients_ = std::move(addresses); }
    void RecipientName(std::string names) override { recipientNames_ = std::move(names); }
    void SubjectText(std::string text) override { subject_ = std::move(text); }
    void BodyText(std::string bytes) override { body_ = std::move(bytes); }
    void SendMessage() override;

    const MailLimits& limits() const { return limits_; }

    /// Whether a relay, given as host or host:port, is this machine by its very name.
    static bool isThisMachine(const std::string& relay);

  private:
    MailLimits limits_;
    std::string delimiter_;
    std::string relay_;
    MailAddress sender_;
    std::string recipients_;
    std::string recipientNames_;
    std::string subject_;
    std::string body_;
};

} // namespace quillet
