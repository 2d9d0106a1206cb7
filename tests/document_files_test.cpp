// Every prompt, answer, cancel and failure of the file commands, with the state that it leaves.
#include "tests/test_window.h"
#include "window/menu_table.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using F = frmQuillet;
using Paths = std::deque<std::optional<std::string>>;

const std::string changes = "ask Do you want to save changes made to file? [Yes/No] Quillet1.0|";
const std::string closes = "ask Do you want to save changes made since you last opened the file? "
                           "[Yes/No/Cancel] Quillet1.0|";
const std::string exits = "ask Do you want to save the file? [Yes/No/Cancel] Quillet1.0|";
const std::string closesBox = "ask Do you want to save the file? [Yes/No] Quillet1.0|";
const std::string toOpen = ": *.qlt* *.txt* *.htm* *.*|";
const std::string toSave = ": *.qlt* *.txt* *.*|";
const std::string titled = "Quillet: Hindi Word Processor";

struct Before {
    const char* text = "";
    bool newFile = true;
    bool used = false;
    const char* file = "";
    const char* dialogName = ""; // what the dialog holds from earlier uses
};

// The disk holds /d/old.txt ("old") and the read-only /d/locked.qlt ("locked"); the title is "T".
const struct {
    const char* name;
    Command command; // nothing: the close box
    Before before;
    Answer answer;
    Paths choices; // then the dialog is cancelled
    std::string calls;
    std::string after; // text, title, flags and file
} cases[] = {
    // clang-format off
    {"New on an empty box asks nothing", &F::mnuNew_Click, {}, Answer::Ok, {}, "",
     "|" + titled + "  (New Unsaved File)|new|"},
    {"New, No", &F::mnuNew_Click, {"ab"}, Answer::No, {}, changes,
     "|" + titled + "  (New Unsaved File)|new|"},
    {"New, Yes, saves to the file it has and keeps its name", &F::mnuNew_Click,
     {"ab", false, false, "/d/old.txt"}, Answer::Yes, {}, changes + "write /d/old.txt|",
     "|" + titled + "  (New Unsaved File)|new|/d/old.txt"},
    {"New, Yes, cancelled Save As: the text is lost", &F::mnuNew_Click, {"ab", true, true},
     Answer::Yes, {}, changes + "save at ''" + toSave, "|" + titled + "  (New Unsaved File)|new|"},
    {"Open", &F::mnuOpen_Click, {}, Answer::Ok, {"/d/old.txt"},
     "open at ''" + toOpen + "read /d/old.txt|", "old|" + titled + "  /d/old.txt||/d/old.txt"},
    {"Open with text, Yes, saves a new document under a name first", &F::mnuOpen_Click, {"ab"},
     Answer::Yes, {"/d/x", "/d/old.txt"},
     changes + "save at ''" + toSave + "write /d/x.qlt|open at '/d/x'" + toOpen +
         "read /d/old.txt|",
     "old|" + titled + "  /d/old.txt||/d/old.txt"},
    {"Open cancelled at first use takes the empty name", &F::mnuOpen_Click, {"ab"}, Answer::No, {},
     changes + "open at ''" + toOpen + "read |", "ab|" + titled + "  ||"},
    {"Open cancelled later reads the last file again", &F::mnuOpen_Click,
     {"ab", true, true, "", "/d/old.txt"}, Answer::No, {},
     changes + "open at '/d/old.txt'" + toOpen + "read /d/old.txt|",
     "old|" + titled + "  /d/old.txt||/d/old.txt"},
    {"Open of a missing file keeps the text and takes the name", &F::mnuOpen_Click, {"ab"},
     Answer::No, {"/d/none.qlt"}, changes + "open at ''" + toOpen + "read /d/none.qlt|",
     "ab|" + titled + "  /d/none.qlt||/d/none.qlt"},
    {"Save of a new document is Save As", &F::mnuSave_Click, {"ab", true, true}, Answer::Ok,
     {"/d/x"}, "save at ''" + toSave + "write /d/x.qlt|",
     "ab|Quillet: Hindi Text Editor (/d/x.qlt)|used|/d/x.qlt"},
    {"Save writes without a word", &F::mnuSave_Click, {"ab", false, true, "/d/old.txt"},
     Answer::Ok, {}, "write /d/old.txt|", "ab|T|used|/d/old.txt"},
    {"Save after a cancelled Open has no name", &F::mnuSave_Click, {"ab", false}, Answer::Ok, {},
     "save at ''" + toSave, "ab|T||"},
    {"Save of a new file with a name, cancelled", &F::mnuSave_Click,
     {"ab", true, false, "/d/old.txt"}, Answer::Ok, {}, "save at ''" + toSave,
     "ab|T|new|/d/old.txt"},
    {"Save As cancelled later writes under the last name", &F::mnuSaveAs_Click,
     {"ab", true, false, "", "/d/notes.txt"}, Answer::Ok, {},
     "save at '/d/notes.txt'" + toSave + "write /d/notes.txt.qlt|",
     "ab|Quillet: Hindi Text Editor (/d/notes.txt.qlt)||/d/notes.txt.qlt"},
    {"Save As compares the extension exactly", &F::mnuSaveAs_Click, {}, Answer::Ok, {"/d/L.QLT"},
     "save at ''" + toSave + "write /d/L.QLT.qlt|",
     "|Quillet: Hindi Text Editor (/d/L.QLT.qlt)||/d/L.QLT.qlt"},
    {"Save As that cannot write takes the name all the same", &F::mnuSaveAs_Click, {"ab"},
     Answer::Ok, {"/d/locked.qlt"}, "save at ''" + toSave + "write /d/locked.qlt|",
     "ab|Quillet: Hindi Text Editor (/d/locked.qlt)||/d/locked.qlt"},
    {"Close of an unchanged empty box", &F::mnuClose_Click, {}, Answer::Ok, {}, "", "|T|new|"},
    {"Close, Cancel", &F::mnuClose_Click, {"ab"}, Answer::Cancel, {}, closes, "ab|T|new used|"},
    {"Close, No", &F::mnuClose_Click, {"", true, true, "/d/old.txt"}, Answer::No, {}, closes,
     "|" + titled + "|new|/d/old.txt"},
    {"Close, Yes, saves first", &F::mnuClose_Click, {"ab", false, false, "/d/old.txt"},
     Answer::Yes, {}, closes + "write /d/old.txt|", "|" + titled + "|new|/d/old.txt"},
    {"Exit of an unchanged document", &F::mnuExit_Click, {"ab"}, Answer::Ok, {}, "", "ab|T|new|"},
    {"Exit, Cancel", &F::mnuExit_Click, {"", true, true}, Answer::Cancel, {}, exits,
     "|T|new used|"},
    {"Exit, No", &F::mnuExit_Click, {"", true, true}, Answer::No, {}, exits + "end",
     "|T|new used|"},
    {"Exit, Yes, asks for a name even for a file, and ends though cancelled", &F::mnuExit_Click,
     {"", false, true, "/d/old.txt"}, Answer::Yes, {}, exits + "save at ''" + toSave + "end",
     "|T|used|/d/old.txt"},
    {"Close box, unchanged", nullptr, {"ab"}, Answer::Ok, {}, "", "ab|T|new|"},
    {"Close box, No", nullptr, {"", true, true}, Answer::No, {}, closesBox + "end",
     "|T|new used|"},
    {"Close box, Yes, goes through Save As", nullptr, {"ab", false, true, "/d/old.txt"},
     Answer::Yes, {"/d/x.qlt"}, closesBox + "save at ''" + toSave + "write /d/x.qlt|end",
     "ab|Quillet: Hindi Text Editor (/d/x.qlt)|used|/d/x.qlt"},
    // clang-format on
};

TEST(DocumentFiles, EveryAnswerCancelAndFailureLeavesItsState) {
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        TestWindow form;
        FakeDesktop& desktop = form.desktop;
        desktop.disk = {{"/d/old.txt", "old"}, {"/d/locked.qlt", "locked"}};
        desktop.readOnly = {"/d/locked.qlt"};
        desktop.answers = {row.answer};
        desktop.choices = row.choices;
        form.txtMain.Text(row.before.text);
        form.Caption("T");
        form.NewFile = row.before.newFile;
        form.textboxused = row.before.used;
        form.NameofFile = row.before.file;
        form.cdbOpenSave.FileName = row.before.dialogName;
        std::string end;
        try {
            row.command != nullptr ? (form.*row.command)() : form.close();
        } catch (const EndOfProgram&) {
            end = "end";
        }
        EXPECT_EQ(joined(desktop.calls) + end, row.calls);
        const std::string flags =
            form.NewFile ? form.textboxused ? "new used" : "new" : (form.textboxused ? "used" : "");
        EXPECT_EQ(form.txtMain.Text() + "|" + form.Caption() + "|" + flags + "|" + form.NameofFile,
                  row.after);
        EXPECT_EQ(desktop.disk["/d/locked.qlt"], "locked");
    }
}

} // namespace
} // namespace quillet
