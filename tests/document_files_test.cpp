// Every prompt, answer, cancel and failure of the file commands, with the state that it leaves.
#include "tests/test_window.h"
#include "window/menu_table.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Choice = std::optional<std::string>;

constexpr const char* changesPrompt = "ask Do you want to save changes made to file? [Yes/No] ";
constexpr const char* closePrompt =
    "ask Do you want to save changes made since you last opened the file? [Yes/No/Cancel] ";
constexpr const char* exitPrompt = "ask Do you want to save the file? [Yes/No/Cancel] ";
constexpr const char* closeBoxPrompt = "ask Do you want to save the file? [Yes/No] ";
const std::string openCall = "open at '%': *.qlt* *.txt* *.htm* *.*";
const std::string saveCall = "save at '%': *.qlt* *.txt* *.*";

constexpr const char* designTitle = "Quillet: Inscript Based Basic Devnagari Word Processor";

// What a document is before and after a command: text, title, flags, file.
struct State {
    std::string text = {};
    std::string title = designTitle;
    bool newFile = true;
    bool used = false;
    std::string file = {};

    friend bool operator==(const State&, const State&) = default;
    friend std::ostream& operator<<(std::ostream& out, const State& state) {
        return out << '"' << state.text << "\" \"" << state.title << "\" new " << state.newFile
                   << " used " << state.used << " file '" << state.file << "'";
    }
};

enum class Ends { No, Yes };

struct Case {
    const char* name;
    Command command; // nothing: the close box
    State before;
    std::string dialogName; // what the dialog holds from earlier uses
    std::deque<Answer> answers;
    std::deque<Choice> choices;
    std::vector<std::string> calls;
    State after;
    Ends ends = Ends::No;
};

std::string asked(const char* prompt) {
    return std::string(prompt) + applicationTitle;
}

std::string at(std::string call, const std::string& name) {
    return call.replace(call.find('%'), 1, name);
}

std::string opened(const std::string& path) {
    return "Quillet: Hindi Word Processor  " + path;
}

std::string saved(const std::string& path) {
    return "Quillet: Hindi Text Editor (" + path + ")";
}

const std::string newTitle = "Quillet: Hindi Word Processor  (New Unsaved File)";
const std::string closedTitle = "Quillet: Hindi Word Processor";

// The disk holds /d/old.txt ("old") and the read-only /d/locked.qlt ("locked").
// clang-format off
const std::vector<Case> cases = {
    {"New on an empty box asks nothing", &frmQuillet::mnuNew_Click, {}, "", {}, {}, {},
     {.title = newTitle}},
    {"New, No", &frmQuillet::mnuNew_Click, {.text = "ab"}, "", {Answer::No}, {},
     {asked(changesPrompt)}, {.title = newTitle}},
    {"New, Yes, saves to the file it has and keeps its name", &frmQuillet::mnuNew_Click,
     {.text = "ab", .newFile = false, .file = "/d/old.txt"}, "", {Answer::Yes}, {},
     {asked(changesPrompt), "write /d/old.txt"}, {.title = newTitle, .file = "/d/old.txt"}},
    {"New, Yes, cancelled Save As: the text is lost", &frmQuillet::mnuNew_Click,
     {.text = "ab", .used = true}, "", {Answer::Yes}, {Choice()},
     {asked(changesPrompt), at(saveCall, "")}, {.title = newTitle}},
    {"Open", &frmQuillet::mnuOpen_Click, {}, "", {}, {"/d/old.txt"},
     {at(openCall, ""), "read /d/old.txt"},
     {.text = "old", .title = opened("/d/old.txt"), .newFile = false, .file = "/d/old.txt"}},
    {"Open with text, Yes, saves a new document under a name first", &frmQuillet::mnuOpen_Click,
     {.text = "ab"}, "", {Answer::Yes}, {"/d/x", "/d/old.txt"},
     {asked(changesPrompt), at(saveCall, ""), "write /d/x.qlt", at(openCall, "/d/x"),
      "read /d/old.txt"},
     {.text = "old", .title = opened("/d/old.txt"), .newFile = false, .file = "/d/old.txt"}},
    {"Open cancelled at first use takes the empty name", &frmQuillet::mnuOpen_Click, {.text = "ab"},
     "", {Answer::No}, {Choice()}, {asked(changesPrompt), at(openCall, ""), "read "},
     {.text = "ab", .title = opened(""), .newFile = false}},
    {"Open cancelled later reads the last file again", &frmQuillet::mnuOpen_Click,
     {.text = "ab", .used = true}, "/d/old.txt", {Answer::No}, {Choice()},
     {asked(changesPrompt), at(openCall, "/d/old.txt"), "read /d/old.txt"},
     {.text = "old", .title = opened("/d/old.txt"), .newFile = false, .file = "/d/old.txt"}},
    {"Open of a missing file keeps the text and takes the name", &frmQuillet::mnuOpen_Click,
     {.text = "ab"}, "", {Answer::No}, {"/d/none.qlt"},
     {asked(changesPrompt), at(openCall, ""), "read /d/none.qlt"},
     {.text = "ab", .title = opened("/d/none.qlt"), .newFile = false, .file = "/d/none.qlt"}},
    {"Save of a new document is Save As", &frmQuillet::mnuSave_Click, {.text = "ab", .used = true},
     "", {}, {"/d/x"}, {at(saveCall, ""), "write /d/x.qlt"},
     {.text = "ab", .title = saved("/d/x.qlt"), .newFile = false, .used = true,
      .file = "/d/x.qlt"}},
    {"Save writes without a word", &frmQuillet::mnuSave_Click,
     {.text = "ab", .title = "T", .newFile = false, .used = true, .file = "/d/old.txt"}, "", {}, {},
     {"write /d/old.txt"},
     {.text = "ab", .title = "T", .newFile = false, .used = true, .file = "/d/old.txt"}},
    {"Save that cannot write changes nothing", &frmQuillet::mnuSave_Click,
     {.text = "ab", .title = "T", .newFile = false, .file = "/d/locked.qlt"}, "", {}, {},
     {"write /d/locked.qlt"},
     {.text = "ab", .title = "T", .newFile = false, .file = "/d/locked.qlt"}},
    {"Save after a cancelled Open has no name", &frmQuillet::mnuSave_Click,
     {.text = "ab", .title = "T", .newFile = false}, "", {}, {Choice()}, {at(saveCall, "")},
     {.text = "ab", .title = "T", .newFile = false}},
    {"Save of a file without a name, but NewFile: Save As wins", &frmQuillet::mnuSave_Click,
     {.text = "ab", .file = "/d/old.txt"}, "", {}, {Choice()}, {at(saveCall, "")},
     {.text = "ab", .file = "/d/old.txt"}},
    {"Save As cancelled at first use", &frmQuillet::mnuSaveAs_Click, {.text = "ab"}, "", {},
     {Choice()}, {at(saveCall, "")}, {.text = "ab"}},
    {"Save As cancelled later writes under the last name", &frmQuillet::mnuSaveAs_Click,
     {.text = "ab"}, "/d/notes.txt", {}, {Choice()},
     {at(saveCall, "/d/notes.txt"), "write /d/notes.txt.qlt"},
     {.text = "ab", .title = saved("/d/notes.txt.qlt"), .newFile = false,
      .file = "/d/notes.txt.qlt"}},
    {"Save As compares the extension exactly", &frmQuillet::mnuSaveAs_Click, {}, "", {},
     {"/d/LETTER.QLT"}, {at(saveCall, ""), "write /d/LETTER.QLT.qlt"},
     {.title = saved("/d/LETTER.QLT.qlt"), .newFile = false, .file = "/d/LETTER.QLT.qlt"}},
    {"Save As that cannot write takes the name all the same", &frmQuillet::mnuSaveAs_Click,
     {.text = "ab"}, "", {}, {"/d/locked.qlt"}, {at(saveCall, ""), "write /d/locked.qlt"},
     {.text = "ab", .title = saved("/d/locked.qlt"), .newFile = false, .file = "/d/locked.qlt"}},
    {"Close of an unchanged empty box does nothing", &frmQuillet::mnuClose_Click, {}, "", {}, {},
     {}, {}},
    {"Close, Cancel", &frmQuillet::mnuClose_Click, {.text = "ab"}, "", {Answer::Cancel}, {},
     {asked(closePrompt)}, {.text = "ab", .used = true}},
    {"Close, No", &frmQuillet::mnuClose_Click, {.used = true, .file = "/d/old.txt"}, "",
     {Answer::No}, {}, {asked(closePrompt)}, {.title = closedTitle, .file = "/d/old.txt"}},
    {"Close, Yes, saves first", &frmQuillet::mnuClose_Click,
     {.text = "ab", .newFile = false, .file = "/d/old.txt"}, "", {Answer::Yes}, {},
     {asked(closePrompt), "write /d/old.txt"}, {.title = closedTitle, .file = "/d/old.txt"}},
    {"Exit of an unchanged document does nothing", &frmQuillet::mnuExit_Click, {.text = "ab"}, "",
     {}, {}, {}, {.text = "ab"}},
    {"Exit, Cancel", &frmQuillet::mnuExit_Click, {.used = true}, "", {Answer::Cancel}, {},
     {asked(exitPrompt)}, {.used = true}},
    {"Exit, No", &frmQuillet::mnuExit_Click, {.used = true}, "", {Answer::No}, {},
     {asked(exitPrompt)}, {.used = true}, Ends::Yes},
    {"Exit, Yes, asks for a name even for a file, and ends though cancelled",
     &frmQuillet::mnuExit_Click, {.newFile = false, .used = true, .file = "/d/old.txt"}, "",
     {Answer::Yes}, {Choice()}, {asked(exitPrompt), at(saveCall, "")},
     {.newFile = false, .used = true, .file = "/d/old.txt"}, Ends::Yes},
    {"Close box, unchanged", nullptr, {.text = "ab"}, "", {}, {}, {}, {.text = "ab"}},
    {"Close box, No", nullptr, {.used = true}, "", {Answer::No}, {}, {asked(closeBoxPrompt)},
     {.used = true}, Ends::Yes},
    {"Close box, Yes, goes through Save As", nullptr,
     {.text = "ab", .newFile = false, .used = true, .file = "/d/old.txt"}, "", {Answer::Yes},
     {"/d/x.qlt"}, {asked(closeBoxPrompt), at(saveCall, ""), "write /d/x.qlt"},
     {.text = "ab", .title = saved("/d/x.qlt"), .newFile = false, .used = true, .file = "/d/x.qlt"},
     Ends::Yes},
};
// clang-format on

void setUp(TestWindow& form, const Case& row) {
    FakeDesktop& desktop = form.desktop;
    desktop.disk = {{"/d/old.txt", "old"}, {"/d/locked.qlt", "locked"}};
    desktop.readOnly = {"/d/locked.qlt"};
    desktop.answers = row.answers;
    desktop.choices = row.choices;
    form.txtMain.Text(row.before.text);
    form.Caption(row.before.title);
    form.NewFile = row.before.newFile;
    form.textboxused = row.before.used;
    form.NameofFile = row.before.file;
    form.cdbOpenSave.FileName = row.dialogName;
}

bool endsProgram(frmQuillet& form, Command command) {
    try {
        command != nullptr ? (form.*command)() : form.close();
    } catch (const EndOfProgram&) {
        return true;
    }
    return false;
}

TEST(DocumentFiles, EveryAnswerCancelAndFailureLeavesItsState) {
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        TestWindow form;
        FakeDesktop& desktop = form.desktop;
        setUp(form, row);
        EXPECT_EQ(endsProgram(form, row.command), row.ends == Ends::Yes);
        EXPECT_EQ(desktop.calls, row.calls);
        const State after{form.txtMain.Text(), form.Caption(), form.NewFile, form.textboxused,
                          form.NameofFile};
        EXPECT_EQ(after, row.after);
        EXPECT_EQ(desktop.disk["/d/locked.qlt"], "locked");
    }
}

TEST(DocumentFiles, ADocumentGrowsByOneLineBreakAtEachOpenAndSave) {
    GlyphString everyByte;
    for (int code = 0; code < 256; ++code)
        everyByte.push_back(static_cast<char>(code));
    TestWindow form;
    FakeDesktop& desktop = form.desktop;
    form.txtMain.Text(everyByte);
    form.txtMain.SelStart(100); // a gap in the middle
    form.txtMain.SelText("x");
    form.txtMain.SelStart(100);
    form.txtMain.SelLength(1);
    form.txtMain.SelText("");
    desktop.choices = {"/d/a"};
    form.mnuSaveAs_Click();
    EXPECT_EQ(desktop.disk["/d/a.qlt"], everyByte + "\r\n");

    desktop.choices = {"/d/a.qlt"};
    desktop.answers = {Answer::No};
    form.mnuOpen_Click();
    EXPECT_EQ(form.txtMain.Text(), everyByte + "\r\n");
    EXPECT_EQ(form.txtMain.SelStart(), 0);
    EXPECT_FALSE(form.txtMain.canUndo());
    form.mnuSave_Click();
    EXPECT_EQ(desktop.disk["/d/a.qlt"], everyByte + "\r\n\r\n");
}

} // namespace
} // namespace quillet
