// A long day at full speed: a million key events and a thousand commands in the real window. The
// very same events go into the logic in this process, and every file that the program saves must
// hold the text that the logic has; the program's memory must not grow.
#include "bench/soak_typist.h"
#include "window/context_menu.h"

#include <iostream>

namespace quillet {
namespace {

// Of every hundred commands each fourth compares a file and the last begins anew; in the first half
// nothing else does, so that undo can grow to its full length.
constexpr int round = 100;
constexpr std::string_view beginning[] = {"mnuNew", "mnuOpen", "mnuClose"};

// These hand over to other programs or devices.
constexpr std::string_view leftOut[] = {"mnuPrint", "mnuSurfNews", "mnuTips", "mnuLayouts",
                                        "mnuVisitSite"};

// Where a command may still double the text, and no number of the program overflows.
constexpr Position longText = 12'000;

// Megabytes for what caches and heap take on the way, and for what the toolkit keeps of every file
// dialog: it does so in a program that does nothing else, too.
constexpr double allowance = 3;
constexpr double perFileDialog = 0.03;

bool isIn(std::span<const std::string_view> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The letter behind the "&", or 0.
char accessKey(std::string_view caption) {
    const auto at = caption.find('&');
    return at == caption.npos ? '\0' : caption[at + 1];
}

class Soak {
  public:
    explicit Soak(unsigned seed) : typist_(form_, seed) {}

    void run(int events, int commands) {
        try {
            runAll(events, commands);
        } catch (const std::exception& error) {
            throw std::runtime_error("after " + std::to_string(typist_.events()) + " events and " +
                                     std::to_string(command_) + " commands, at last " + name_ +
                                     ": " + error.what());
        }
    }

  private:
    void runAll(int events, int commands) {
        const auto start = std::chrono::steady_clock::now();
        while (command_ < commands) {
            ++command_;
            while (typist_.events() < std::int64_t{events} * command_ / commands)
                typist_.type();
            typist_.releaseAll();
            if (command_ % round == 0)
                beginAnew();
            else if (command_ % 4 == 0)
                saveAndCompare("mnuSave");
            else
                runAnyCommand();
        }
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        std::cout << typist_.events() << " key events and " << command_ << " commands, "
                  << typist_.events() / spent.count() << " events per second, " << comparisons_
                  << " comparisons\n";
        compareMemory();
    }

    void runAnyCommand() {
        const std::size_t what = typist_.upTo(10);
        if (form_.txtMain.length() > longText)
            runFromMenu("mnuClearAll");
        else if (form_.memory_box.size() > longText)
            runFromMenu("mnuEmptyMemory");
        else if (what == 0)
            runFromContextMenu();
        else if (what < 3 && form_.keyboard == normalMode)
            chooseSpecialCharacter();
        else
            runAnyMenuCommand();
    }

    void runAnyMenuCommand() {
        const MenuRow& row = menuTable()[typist_.upTo(menuTable().size())];
        const bool isTooEarly = command_ % round < round / 2 && isIn(beginning, row.name);
        if (row.command == nullptr || isIn(leftOut, row.name) || isTooEarly)
            return runAnyMenuCommand();
        const bool isExit = std::string_view(row.name) == "mnuExit";
        answer_ = isExit ? Answer::Cancel : typist_.upTo(2) == 0 ? Answer::Yes : Answer::No;
        path_ = session_.path(typist_.upTo(2) == 0 ? "a.qlt" : "b.qlt");
        if (typist_.upTo(4) == 0)
            path_.reset();
        if (row.shortcut != 0 && typist_.upTo(2) == 0)
            runByShortcut(row);
        else
            runFromMenu(row.name);
    }

    void begin(const char* name) {
        name_ = name;
        form_.desktop.calls.clear();
        form_.desktop.forms.calls.clear();
        form_.desktop.answers = {answer_};
        form_.desktop.choices = {path_};
    }

    void runByShortcut(const MenuRow& row) {
        begin(row.name);
        typist_.press(soak::ctrl);
        typist_.press(soak::keyOf(row.shortcut));
        finish();
    }

    void runFromMenu(std::string_view name) {
        std::array<int, 3> entry{}; // the place in the menu of each level
        char letter = 0;
        const MenuRow* row = menuTable().data();
        for (;; ++row) {
            const auto level = static_cast<std::size_t>(row->level);
            if (row->level == 0)
                letter = accessKey(row->caption);
            if (std::string_view(row->caption) != "-")
                ++entry[level];
            std::fill(entry.begin() + row->level + 1, entry.end(), 0);
            if (row->name == name)
                break;
        }
        begin(row->name);
        typist_.press(soak::alt);
        typist_.strikeThere(soak::keyOf(letter));
        typist_.releaseAllThere();
        for (int level = 1; level <= row->level; ++level) {
            if (level > 1)
                typist_.strikeThere(soak::enter);
            for (int i = 1; i < entry[static_cast<std::size_t>(level)]; ++i)
                typist_.strikeThere(soak::down);
        }
        choose(soak::enter, row->command);
    }

    void runFromContextMenu() {
        const ContextRow& row = contextMenu()[typist_.upTo(contextMenu().size())];
        if (row.command == nullptr || !row.isEnabled(form_.txtMain))
            return runFromContextMenu(); // Paste is always there
        begin(row.caption);
        typist_.strikeThere(soak::menu);
        choose(soak::keyOf(accessKey(row.caption)), row.command);
    }

    void choose(const SoakKey& key, Command command) {
        typist_.pressThere(key);
        typist_.keyboard.focusLost();
        (form_.*command)();
        typist_.keyboard.focusGained(FocusFrom::Menu);
        finish();
    }

    // The list goes on from the entry that was chosen last.
    void chooseSpecialCharacter() {
        begin("special character");
        const SoakKey z = soak::keyOf('z');
        typist_.press(z);
        typist_.release(z);
        typist_.press(z);
        typist_.turnTo("Chars");
        typist_.keyboard.focusLost();
        Control& list = form_.specialCharacters().control("cmbSpecial");
        const bool isLast = list.ListIndex + 1 == static_cast<int>(list.List.size());
        typist_.pressThere(isLast ? soak::home : soak::down);
        list.choose(isLast ? 0 : list.ListIndex + 1);
        typist_.turnToBox();
        typist_.releaseAll();
    }

    // The logic has run the command already, and tells which windows it has asked for.
    void finish() {
        std::vector<std::string> calls = form_.desktop.calls;
        const auto& forms = form_.desktop.forms.calls;
        calls.insert(calls.end(), forms.begin(), forms.end());
        bool asked = false;
        for (const std::string& call : calls)
            asked |= serve(call);
        if (asked)
            typist_.turnToBox();
        typist_.releaseAll();
    }

    bool serve(const std::string& call) {
        if (call.starts_with("ask "))
            answer(call);
        else if (call.starts_with("open at") || call.starts_with("save at"))
            chooseFile(call[0] == 'o' ? "Open" : "Save As");
        else if (call.starts_with("input "))
            leave("Quillet Email", soak::escape);
        else if (call == "show frmAbout")
            leave("About Quillet", soak::enter);
        else if (call == "show frmFind")
            find();
        else if (call == "show frmReplace")
            replace();
        else
            return false;
        return true;
    }

    // The key goes up in the window that comes next.
    void leave(const std::string& title, const SoakKey& key) {
        typist_.turnTo(title);
        typist_.pressThere(key);
    }

    void answer(const std::string& call) {
        const std::string title = call.substr(call.rfind("] ") + 2);
        const SoakKey chosen = answer_ == Answer::Yes  ? soak::keyOf('y')
                               : answer_ == Answer::No ? soak::keyOf('n')
                                                       : soak::escape;
        leave(title, call.find(" [OK] ") != call.npos ? soak::enter : chosen);
    }

    void chooseFile(const std::string& title) {
        ++fileDialogs_;
        typist_.turnTo(title);
        if (path_)
            session_.type(*path_);
        typist_.pressThere(path_ ? soak::enter : soak::escape);
    }

    // Types it there.
    GlyphString anyLetter() {
        const char letter = "qwertyuiopasdfghjkl"[typist_.upTo(19)];
        typist_.strikeThere(soak::keyOf(letter));
        return {letter};
    }

    void find() {
        typist_.turnTo("Quillet: Find");
        frmFind& window = form_.findWindow();
        typist_.strikeThere(soak::tab);
        typist_.strikeThere(soak::tab);
        window.control("txtfind").Text(anyLetter());
        typist_.tabBackThere();
        for (std::size_t times = 1 + typist_.upTo(3); times > 0 && window.isVisible(); --times) {
            typist_.strikeThere(soak::enter);
            window.cmdfind_Click();
        }
        if (!window.isVisible())
            return leave("Quillet: Find Next", soak::enter); // nothing was found
        typist_.tabBackThere();
        typist_.pressThere(soak::enter);
        window.cmdcancel_Click();
    }

    void replace() {
        typist_.turnTo("Quilet: Replace");
        frmReplace& window = form_.replaceWindow();
        typist_.strikeThere(soak::tab);
        typist_.strikeThere(soak::tab);
        window.control("txtreplace").Text(anyLetter());
        typist_.strikeThere(soak::tab);
        window.control("txtwhat").Text(anyLetter());
        typist_.tabBackThere();
        typist_.tabBackThere();
        typist_.strikeThere(soak::enter);
        window.cmdreplaceall_Click();
        typist_.tabBackThere();
        typist_.pressThere(soak::enter);
        window.cmdcancel_Click();
    }

    void saveAndCompare(const char* command) {
        answer_ = Answer::Yes;
        path_ = session_.path("a.qlt");
        const bool isNew = form_.NewFile || form_.NameofFile.empty();
        const fs::path path = isNew ? *path_ : form_.NameofFile;
        runFromMenu(command);
        typist_.focus(); // sends everything
        const GlyphString& expected = form_.desktop.disk[path];
        const auto saved = [&] { return session_.read(path.filename()); };
        if (!waitUntil([&] { return saved() == expected; }))
            throw std::runtime_error(difference(saved(), expected));
        ++comparisons_;
    }

    static std::string difference(const std::string& saved, const GlyphString& expected) {
        const auto at =
            std::mismatch(saved.begin(), saved.end(), expected.begin(), expected.end()).first;
        return "the program saved " + std::to_string(saved.size()) + " bytes and not " +
               std::to_string(expected.size()) + ", with differences from byte " +
               std::to_string(at - saved.begin()) + " on";
    }

    // An empty text without a past: what memory is left now but was not before has leaked.
    void beginAnew() {
        saveAndCompare("mnuNew");
        resident_.push_back(megabytes("VmRSS"));
    }

    double megabytes(const std::string& name) {
        return std::stod(output("awk '/" + name + "/ {print $2 / 1000}' /proc/" +
                                std::to_string(session_.program().id()) + "/status"));
    }

    // The first half warms up: until then not every font has been used in every size.
    void compareMemory() {
        std::cout << "memory with an empty text:";
        for (const double now : resident_)
            std::cout << ' ' << now;
        std::cout << " MB, at most " << megabytes("VmHWM") << " MB; " << fileDialogs_
                  << " file dialogs\n";
        const std::size_t warm = (resident_.size() - 1) / 2;
        if (resident_.size() > 1 &&
            resident_.back() > resident_[warm] + allowance + perFileDialog * fileDialogs_ / 2)
            throw std::runtime_error("the program's memory has grown");
    }

    DesktopSession session_;
    TestWindow form_;
    SoakTypist typist_;               // on the display of the session
    Answer answer_ = Answer::Yes;     // to the next question
    std::optional<std::string> path_; // for the next file dialog
    std::string name_;                // of the last command
    int command_ = 0;
    int comparisons_ = 0;
    int fileDialogs_ = 0;
    std::vector<double> resident_;
};

} // namespace
} // namespace quillet

// soak [EVENTS [COMMANDS [SEED]]]
int main(int argc, char** argv) {
    try {
        const auto argument = [&](int at, unsigned otherwise) {
            return at < argc ? static_cast<unsigned>(std::stoul(argv[at])) : otherwise;
        };
        const unsigned seed = argument(3, std::random_device{}());
        std::cout << "seed " << seed << std::endl;
        quillet::Soak(seed).run(static_cast<int>(argument(1, 1'000'000)),
                                static_cast<int>(argument(2, 1'000)));
    } catch (const std::exception& error) {
        std::cerr << "soak: " << error.what() << '\n';
        return 1;
    }
}
