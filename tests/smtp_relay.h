// A mail relay that goes wrong as it is told.
#pragma once

#include <array>
#include <atomic>
#include <cstdio>
#include <future>
#include <map>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillet {

/// Speaks SMTP at a free port of this machine. What goes wrong is told by stage: "greeting",
/// "EHLO", "MAIL", "RCPT", "DATA", "." and "QUIT".
class SmtpRelay {
  public:
    enum class Fault { Refuse, Drop, Silence };

    explicit SmtpRelay(std::map<std::string, Fault> faults = {});
    ~SmtpRelay();
    SmtpRelay(const SmtpRelay&) = delete;
    SmtpRelay& operator=(const SmtpRelay&) = delete;

    /// As host:port.
    const std::string& address() const { return address_; }

    /// From here on until its release, the end of a mail gets no answer.
    void hold() { held_ = released_.get_future(); }
    void release() { released_.set_value(); }
    bool holds() const { return holds_; } // a mail

  private:
    void serve();
    void talk(int connection);

    std::map<std::string, Fault> faults_;
    std::atomic<bool> holds_ = false;
    std::promise<void> released_;
    std::shared_future<void> held_;
    int listener_;
    std::string address_;
    std::thread thread_;
};

inline SmtpRelay::SmtpRelay(std::map<std::string, Fault> faults)
    : faults_(std::move(faults)),
      listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in place{};
    socklen_t size = sizeof place;
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const name = reinterpret_cast<sockaddr*>(&place);
    if (bind(listener_, name, size) == 0 && listen(listener_, 8) == 0)
        getsockname(listener_, name, &size);
    address_ = "127.0.0.1:" + std::to_string(ntohs(place.sin_port));
    thread_ = std::thread([this] { serve(); });
}

inline SmtpRelay::~SmtpRelay() {
    released_ = {}; // lets go of what it holds
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

inline void SmtpRelay::serve() {
    for (int connection = 0; (connection = accept(listener_, nullptr, nullptr)) >= 0;)
        talk(connection);
}

inline void SmtpRelay::talk(int connection) {
    FILE* const lines = fdopen(connection, "r");
    std::string stage = "greeting";
    bool inText = false;
    bool goesOn = true;
    while (goesOn) {
        const auto fault = faults_.find(stage);
        if (fault != faults_.end() && fault->second == Fault::Drop)
            break;
        if (stage == "." && held_.valid()) {
            holds_ = true;
            held_.wait();
        }
        const bool isRefused = fault != faults_.end() && fault->second == Fault::Refuse;
        const char* const good = stage == "DATA"       ? "354\r\n"
                                 : stage == "greeting" ? "220\r\n"
                                                       : "250\r\n";
        if (fault == faults_.end() || isRefused)
            send(connection, isRefused ? "554\r\n" : good, 5, MSG_NOSIGNAL);
        inText = stage == "DATA" && !isRefused;
        do {
            std::array<char, 1024> line{};
            goesOn = fgets(line.data(), line.size(), lines) != nullptr;
            stage = line.data();
        } while (goesOn && inText && stage != ".\r\n");
        stage = inText ? "." : stage.substr(0, 4) == "HELO" ? "EHLO" : stage.substr(0, 4);
    }
    fclose(lines);
}

} // namespace quillet
