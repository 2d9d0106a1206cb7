#include "platform/qt/curl_mail.h"

#include "base/run_time_error.h"
#include "platform/qt/busy_input.h"
#include "platform/qt/entry.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLibrary>
#include <QUrl>
#include <QUuid>

#include <algorithm>
#include <cstring>

#include <curl/curl.h>

namespace quillet {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

[[noreturn]] void fail() {
    throw RunTimeError(ErrorNumber::ComponentFailed);
}

template <class Function>
void resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    if (function == nullptr)
        fail();
}

// The library is loaded for the first mail: linked to it, the program would start 6 ms later.
struct Curl {
    Curl() {
        QLibrary library("curl", 4);
        decltype(&curl_global_init) globalInit = nullptr;
        resolve(library, "curl_global_init", globalInit);
        resolve(library, "curl_easy_init", easyInit);
        resolve(library, "curl_easy_setopt", setOption);
        resolve(library, "curl_easy_cleanup", easyCleanup);
        resolve(library, "curl_slist_append", append);
        resolve(library, "curl_slist_free_all", freeAll);
        resolve(library, "curl_multi_init", multiInit);
        resolve(library, "curl_multi_add_handle", addHandle);
        resolve(library, "curl_multi_perform", perform);
        resolve(library, "curl_multi_poll", poll);
        resolve(library, "curl_multi_info_read", readInfo);
        resolve(library, "curl_multi_remove_handle", removeHandle);
        resolve(library, "curl_multi_cleanup", multiCleanup);
        if (globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK)
            fail();
    }

    decltype(&curl_easy_init) easyInit = nullptr;
    decltype(&curl_easy_setopt) setOption = nullptr;
    decltype(&curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&curl_slist_append) append = nullptr;
    decltype(&curl_slist_free_all) freeAll = nullptr;
    decltype(&curl_multi_init) multiInit = nullptr;
    decltype(&curl_multi_add_handle) addHandle = nullptr;
    decltype(&curl_multi_perform) perform = nullptr;
    decltype(&curl_multi_poll) poll = nullptr;
    decltype(&curl_multi_info_read) readInfo = nullptr;
    decltype(&curl_multi_remove_handle) removeHandle = nullptr;
    decltype(&curl_multi_cleanup) multiCleanup = nullptr;
};

const Curl& curl() {
    static const Curl loaded;
    return loaded;
}

struct Envelope {
    std::string relay;
    std::string sender;
    std::vector<MailAddress> recipients;
};

// One attempt to send a mail.
class Transfer {
  public:
    Transfer(const Envelope& envelope, std::string_view text) : Transfer() {
        if (easy_ == nullptr || multi_ == nullptr)
            fail();
        for (const MailAddress& recipient : envelope.recipients)
            addRecipient(recipient.address);
        const std::string url = "smtp://" + envelope.relay;
        set(CURLOPT_URL, url.c_str());
        set(CURLOPT_PROTOCOLS_STR, "smtp");
        set(CURLOPT_PROXY, ""); // none from the environment either
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_QUICK_EXIT, 1L); // a name server that is silent holds nothing up
        set(CURLOPT_MAIL_FROM, envelope.sender.c_str());
        set(CURLOPT_MAIL_RCPT, recipients_);
        text_ = text;
        set(CURLOPT_UPLOAD, 1L);
        set(CURLOPT_READFUNCTION, &Transfer::read);
        set(CURLOPT_READDATA, this);
        set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(text.size()));
        set(CURLOPT_FORBID_REUSE, 1L); // so that its QUIT belongs to the transfer
        set(CURLOPT_NOPROGRESS, 0L);
        set(CURLOPT_XFERINFOFUNCTION, &Transfer::progress);
        set(CURLOPT_XFERINFODATA, this);
        set(CURLOPT_VERBOSE, 1L);
        set(CURLOPT_DEBUGFUNCTION, &Transfer::debug);
        set(CURLOPT_DEBUGDATA, this);
    }

    ~Transfer() {
        curl().removeHandle(multi_, easy_);
        curl().multiCleanup(multi_);
        curl().easyCleanup(easy_);
        curl().freeAll(recipients_);
    }

    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    CURLcode run(curl_usessl tls, const MailLimits& limits) {
        set(CURLOPT_USE_SSL, static_cast<long>(tls));
        set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connecting.count()));
        set(CURLOPT_TIMEOUT_MS, static_cast<long>(limits.whole.count()));
        if (curl().addHandle(multi_, easy_) != CURLM_OK)
            fail();
        int running = 1;
        while (running != 0) {
            if (curl().perform(multi_, &running) != CURLM_OK)
                fail();
            leaveModalLoop();
            if (running != 0)
                curl().poll(multi_, nullptr, 0, frame, nullptr);
        }
        int left = 0;
        const CURLMsg* message = curl().readInfo(multi_, &left);
        return message != nullptr ? message->data.result : CURLE_FAILED_INIT;
    }

  private:
    Transfer() = default; // whole before anything can fail

    static constexpr int frame = 20; // milliseconds until windows are painted again

    template <class Value>
    void set(CURLoption option, Value value) {
        if (curl().setOption(easy_, option, value) != CURLE_OK)
            fail();
    }

    void addRecipient(const std::string& address) {
        curl_slist* longer = curl().append(recipients_, address.c_str());
        if (longer == nullptr)
            fail();
        recipients_ = longer;
    }

    static std::size_t read(char* to, std::size_t size, std::size_t count, void* transfer) {
        std::string_view& text = static_cast<Transfer*>(transfer)->text_;
        const std::size_t length = std::min(size * count, text.size());
        std::memcpy(to, text.data(), length);
        text.remove_prefix(length);
        return length;
    }

    // Called whenever there is something to do, and else while the library waits by itself: once a
    // second for the answer to the end of the mail or to its QUIT, which is not worth a wait.
    static int progress(void* transfer, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
        QCoreApplication::processEvents();
        return static_cast<Transfer*>(transfer)->quits_ || hasEnded() ? 1 : 0;
    }

    static int debug(CURL*, curl_infotype type, char* text, std::size_t size, void* transfer) {
        if (type == CURLINFO_HEADER_OUT && std::string_view(text, size).starts_with("QUIT"))
            static_cast<Transfer*>(transfer)->quits_ = true;
        return 0;
    }

    std::string_view text_;
    curl_slist* recipients_ = nullptr;
    CURL* easy_ = curl().easyInit();
    CURLM* multi_ = curl().multiInit();
    bool quits_ = false;
};

bool isTlsFailure(CURLcode result) {
    return result == CURLE_PEER_FAILED_VERIFICATION || result == CURLE_SSL_CACERT_BADFILE ||
           result == CURLE_SSL_CONNECT_ERROR;
}

std::string newMessageId(const std::string& sender) {
    const std::string unique = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    return unique + "@" + sender.substr(sender.rfind('@') + 1);
}

} // namespace

bool CurlMail::isThisMachine(const std::string& relay) {
    const std::string host = QUrl(QString::fromStdString("smtp://" + relay)).host().toStdString();
    return host == "localhost" || host == "::1" ||
           (host.starts_with("127.") && host.find_first_not_of("0123456789.") == std::string::npos);
}

void CurlMail::SendMessage() {
    const auto start = steady_clock::now();
    const auto recipients = splitAddresses(recipients_, recipientNames_, delimiter_);
    const QString date = QDateTime::currentDateTime().toString(Qt::RFC2822Date);
    const std::string text = composeMail(
        {sender_, recipients, subject_, body_, date.toStdString(), newMessageId(sender_.address)});
    const Envelope envelope{relay_, sender_.address, recipients};
    const BusyInput busy;
    CURLcode result = Transfer(envelope, text).run(CURLUSESSL_TRY, limits_);
    if (isTlsFailure(result) && isThisMachine(relay_)) {
        MailLimits left = limits_;
        left.whole -= std::chrono::duration_cast<milliseconds>(steady_clock::now() - start);
        left.whole = std::max(left.whole, milliseconds(1)); // 0 would be no limit
        result = Transfer(envelope, text).run(CURLUSESSL_NONE, left);
    }
    if (result != CURLE_OK)
        fail();
}

} // namespace quillet
