// The real mail component with another relay than the program's.
#pragma once

#include "platform/qt/curl_mail.h"

namespace quillet {

class MailThrough : public CurlMail {
  public:
    explicit MailThrough(const std::string& relay, MailLimits limits = {}) : CurlMail(limits) {
        CurlMail::RelayHost(relay);
    }
    void RelayHost(std::string /*host*/) override {}
};

} // namespace quillet
