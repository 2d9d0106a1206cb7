// The component that sends mail.
#pragma once

#include <string>

namespace quillet {

/// Keeps what it is given until it is given something else. All but the body is UTF-8, and any
/// operation may fail with a `RunTimeError`.
class CKpoSendMail {
  public:
    virtual ~CKpoSendMail() = default;

    virtual void MailOptionFirst(int option) = 0;
    virtual void MailOptionSecond(int option) = 0;
    virtual void AddressDelimiter(std::string delimiter) = 0;
    virtual void RelayHost(std::string host) = 0; // or host:port
    virtual void SenderAddress(std::string address) = 0;
    virtual void SenderName(std::string name) = 0;
    virtual void RecipientAddress(std::string addresses) = 0; // one, or several with delimiters
    virtual void RecipientName(std::string names) = 0;        // as many, in the same way
    virtual void SubjectText(std::string text) = 0;
    virtual void BodyText(std::string bytes) = 0; // Windows-1252

    /// Returns when the relay has taken the mail.
    virtual void SendMessage() = 0;
};

} // namespace quillet
