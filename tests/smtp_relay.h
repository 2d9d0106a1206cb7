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
    enum class Fault { None, Refuse, Drop, Silence };

    explicit SmtpRelay(std::map<std::string, Fault> faults = {}) : faults_(std::move(faults)) {
        sockaddr_in place{};
        socklen_t size = sizeof place;
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* const name = reinterpret_cast<sockaddr*>(&place);
        if (bind(listener_, name, size) == 0 && listen(listener_, 8) == 0 &&
            getsockname(listener_, name, &size) == 0)
            address_ = "127.0.0.1:" + std::to_string(ntohs(place.sin_port));
        thread_ = std::thread([this] {
            for (int connection = 0; (connection = accept(listener_, nullptr, nullptr)) >= 0;)
                talk(connection);
        });
    }
    SmtpRelay(const SmtpRelay&) = delete;
    ~SmtpRelay() {
        released_ = {}; // lets go of what it holds
        shutdown(listener_, SHUT_RDWR);
        thread_.join();
        close(listener_);
    }

    /// As host:port.
    const std::string& address() const { return address_; }

    /// From here on until its release, the end of a mail gets no answer.
    void hold() { held_ = released_.get_future(); }
    void release() { released_.set_value(); }
    bool holds() const { return holds_; } // a mail

  private:
    void talk(int connection) {
        FILE* const lines = fdopen(connection, "r");
        std::string stage = "greeting";
        for (bool goesOn = true; goesOn && faults_[stage] != Fault::Drop;) {
            if (stage == "." && held_.valid()) {
                holds_ = true;
                held_.wait();
            }
            const Fault fault = faults_[stage];
            const char* const answer = fault == Fault::Refuse ? "554\r\n"
                                       : stage == "DATA"      ? "354\r\n"
                                       : stage == "greeting"  ? "220\r\n"
                                                              : "250\r\n";
            if (fault != Fault::Silence)
                send(connection, answer, 5, MSG_NOSIGNAL);
            const bool inText = stage == "DATA" && fault != Fault::Refuse;
            do {
                std::array<char, 1024> line{};
                goesOn = fgets(line.data(), line.size(), lines) != nullptr;
                stage = line.data();
            } while (goesOn && inText && stage != ".\r\n");
            stage = inText ? "." : stage.substr(0, 4) == "HELO" ? "EHLO" : stage.substr(0, 4);
        }
        fclose(lines);
    }

    std::map<std::string, Fault> faults_;
    std::atomic<bool> holds_ = false;
    std::promise<void> released_;
    std::shared_future<void> held_;
    int listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::string address_;
    std::thread thread_;
};

} // namespace quillet
