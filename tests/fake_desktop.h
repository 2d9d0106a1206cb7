// A whole desktop that answers as it is told and keeps what it was asked as text.
#pragma once

#include "base/run_time_error.h"
#include "platform/clipboard.h"
#include "platform/common_dialog.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/form.h"
#include "platform/form_host.h"
#include "platform/input_box.h"
#include "platform/mail_component.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "platform/shell.h"
#include "tests/fake_printer.h"

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace quillet {

using namespace std::string_literals;

/// Calls as one text, with a "|" behind each.
inline std::string joined(const std::vector<std::string>& calls) {
    std::string text;
    for (const std::string& call : calls)
        text += call + "|";
    return text;
}

/// A desktop without windows.
struct FakeForms : FormHost {
    std::vector<std::string> calls; // such as "show frmSpl"

    void show(Form& form) override { calls.push_back("show "s + form.design().name); }
    void hide(Form& form) override { calls.push_back("hide "s + form.design().name); }
    void captionChanged(Form& form) override { calls.push_back("caption "s + form.design().name); }
};

struct FakeDesktop : MessageBox,
                     InputBox,
                     FileChooser,
                     PrinterChooser,
                     Files,
                     Clipboard,
                     Screen,
                     Shell,
                     CKpoSendMail {
    std::deque<Answer> answers;                     // of the next message boxes; then Ok
    std::deque<std::string> inputs;                 // into the next input boxes; then cancel
    std::deque<std::optional<std::string>> choices; // of the next file dialogs; then cancel
    std::map<std::string, GlyphString> disk;
    std::set<std::string> readOnly; // paths that cannot be written
    GlyphString clipboard;
    std::vector<std::string> calls; // what was asked, in order
    bool choosesPrinter = true;     // in the next print dialogs
    int fault = -1;                 // how many more calls to dialogs, files and devices succeed
    int shellResult = Shell::Success;
    FakePrinter printer{[this] { fail(); }};
    FakeForms forms;

    /// With other files than its own where they are given.
    Desktop services() { return services(*this); }
    Desktop services(Files& files) {
        return {*this, *this, *this, *this, printer, files, *this, *this, *this, forms, [this] {
                    calls.emplace_back("make mail component");
                    return std::shared_ptr<CKpoSendMail>(this, [](CKpoSendMail*) {});
                }};
    }

    Answer show(const Message& message) override {
        constexpr const char* buttons[] = {"OK", "Yes/No", "Yes/No/Cancel"};
        constexpr const char* icons[] = {"", " (i)", " (!)"};
        mayFail("ask " + message.text + " [" + buttons[static_cast<std::size_t>(message.buttons)] +
                "] " + message.title + icons[static_cast<std::size_t>(message.icon)]);
        return next(answers, Answer::Ok);
    }

    std::string ask(const std::string& prompt, const std::string& title) override {
        mayFail("input " + prompt + " [] " + title);
        return next(inputs, std::string());
    }

    std::optional<std::string> choose(Purpose purpose, const std::vector<FileFilter>& filters,
                                      const std::string& startName) override {
        std::string call = purpose == Purpose::Open ? "open at '" : "save at '";
        call += startName + "':";
        for (const FileFilter& filter : filters)
            call += " " + filter.patterns;
        mayFail(call);
        return next(choices, std::optional<std::string>());
    }

    bool choosePrinter() override {
        mayFail("choose printer");
        return choosesPrinter;
    }

    bool exists(const std::string& pattern) override {
        fail();
        return disk.contains(pattern);
    }

    TextBuffer read(const std::string& path) override {
        mayFail("read " + path);
        if (!disk.contains(path))
            throw RunTimeError(ErrorNumber::FileNotFound);
        return TextBuffer(disk[path]);
    }

    void write(const std::string& path, std::span<const GlyphView> parts) override {
        mayFail("write " + path);
        if (readOnly.contains(path))
            throw RunTimeError(ErrorNumber::PathFileAccess);
        disk[path].clear();
        for (const GlyphView part : parts)
            disk[path] += part;
    }

    void setText(GlyphView text) override {
        fail();
        clipboard = text;
    }
    GlyphString text() override {
        fail();
        return clipboard;
    }

    // 1024 x 768 pixels at 96 dots per inch.
    Twips width() const override { return {15360}; }
    Twips height() const override { return {11520}; }
    void MousePointer(Pointer pointer) override {
        calls.emplace_back(pointer == Pointer::Hourglass ? "hourglass" : "default pointer");
    }

    int ShellExecuteA(const std::string& operation, const std::string& file,
                      const std::string& parameters, const std::string& directory,
                      int showCommand) override {
        mayFail(operation + " " + file + " '" + parameters + "' " + directory + " " +
                std::to_string(showCommand));
        return shellResult;
    }
    std::string programFolder() const override { return "/program"; }
    void MailOptionFirst(int option) override { mail("MailOptionFirst", std::to_string(option)); }
    void MailOptionSecond(int option) override { mail("MailOptionSecond", std::to_string(option)); }
    void AddressDelimiter(std::string it) override { mail("AddressDelimiter", it); }
    void RelayHost(std::string host) override { mail("RelayHost", host); }
    void SenderAddress(std::string address) override { mail("SenderAddress", address); }
    void SenderName(std::string name) override { mail("SenderName", name); }
    void RecipientAddress(std::string addresses) override { mail("RecipientAddress", addresses); }
    void RecipientName(std::string names) override { mail("RecipientName", names); }
    void SubjectText(std::string text) override { mail("SubjectText", text); }
    void BodyText(std::string bytes) override { mail("BodyText", bytes); }
    void SendMessage() override { mail("SendMessage", ""); }

  private:
    void mayFail(const std::string& call) {
        calls.push_back(call);
        fail();
    }

    void fail() {
        if (fault >= 0 && fault-- == 0)
            throw RunTimeError(ErrorNumber::OutOfMemory);
    }

    void mail(const std::string& call, const std::string& value) { mayFail(call + " " + value); }

    template <class Queue, class Value>
    static Value next(Queue& queue, Value otherwise) {
        if (queue.empty())
            return otherwise;
        Value value = queue.front();
        queue.pop_front();
        return value;
    }
};

} // namespace quillet
