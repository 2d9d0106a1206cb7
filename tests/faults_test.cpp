// Every command with each call failing in turn that it makes to boxes, dialogs, files, clipboard,
// printer, shell and mail.
#include "tests/test_window.h"
#include "window/menu_table.h"
#include "window/toolbar_table.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillet {
namespace {

using Work = std::function<void(frmQuillet&)>;

const char* const path = "/d/old.qlt";

// Where the first call of these fails, the program ends with a report. All other calls are a step
// left out.
const std::set<std::string> beginsUnguarded = {
    "mnuCut",      "mnuCopy",         "mnuPaste",   "mnuClose",      "mnuExit",
    "mnuFontUsed", "mnuKeyboardUsed", "mnuWords",   "mnuCharacters", "mnuSentences",
    "mnuSurfNews", "mnuTips",         "mnuLayouts", "mnuVisitSite"};

// A changed document with a file, for which every dialog has an answer.
void prepare(TestWindow& form) {
    FakeDesktop& desktop = form.desktop;
    desktop.disk = {{path, "old"}, {"/d/other.qlt", "other"}};
    form.txtMain.Text("a b\r\nc");
    form.txtMain.select({0, 3});
    form.NewFile = false;
    form.NameofFile = path;
    form.textboxused = true;
    form.memory_box = "MEM";
    form.cdbOpenSave.FileName = "/d/other.qlt"; // what a failed Open reads
    desktop.clipboard = "clip";
    desktop.answers = {Answer::Yes, Answer::Yes};
    desktop.choices = {"/d/other.qlt", "/d/other.qlt"};
    desktop.inputs = {"me@here", "you@there"};
}

// Each value that a command may change.
std::vector<std::string> values(const TestWindow& form) {
    const FakeDesktop& desktop = form.desktop;
    return {form.txtMain.Text(),
            form.memory_box,
            form.keyboard,
            form.FontUsed,
            desktop.clipboard,
            desktop.disk.at(path),
            desktop.disk.at("/d/other.qlt"),
            form.NameofFile,
            form.Caption(),
            form.NewFile ? "new" : "",
            form.textboxused ? "used" : ""};
}

struct Outcome {
    bool failed = false; // the call that was to fail was made
    bool passedOn = false;
    std::vector<std::string> values;
    bool hourglass = false;
    bool sorry = false;
};

Outcome outcomeOf(const Work& run, int fault) {
    TestWindow form;
    prepare(form);
    form.desktop.fault = fault;
    Outcome outcome;
    try {
        run(form);
    } catch (const RunTimeError&) {
        outcome.passedOn = true;
    } catch (const EndOfProgram&) { // Exit
    }
    outcome.failed = fault >= 0 && form.desktop.fault < 0;
    outcome.values = values(form);
    for (const std::string& call : form.desktop.calls) {
        outcome.hourglass = call == "hourglass" || (outcome.hourglass && call != "default pointer");
        outcome.sorry |= call.starts_with("ask Sorry! You did not specify a necessary value [OK]");
    }
    return outcome;
}

// Returns the number of calls that failed in turn.
int injectFaults(const std::string& name, const Work& run) {
    const std::vector<std::string> before = outcomeOf([](auto&) {}, -1).values;
    const std::vector<std::string> after = outcomeOf(run, -1).values;
    for (int fault = 0;; ++fault) {
        SCOPED_TRACE(name + ", call " + std::to_string(fault));
        const Outcome outcome = outcomeOf(run, fault);
        if (!outcome.failed)
            return fault;
        EXPECT_EQ(outcome.passedOn, fault == 0 && beginsUnguarded.contains(name));
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_TRUE(outcome.values[i] == before[i] || outcome.values[i] == after[i])
                << outcome.values[i];
        EXPECT_EQ(outcome.hourglass, name == "mnuPrint" && fault > 3) << "from PrintText on";
        EXPECT_EQ(outcome.sorry, name == "mnuSendMail");
    }
}

TEST(Faults, LeaveEveryCommandInADescribedState) {
    int faults = injectFaults("Convert", &frmQuillet::ConvertToPdf);
    for (const MenuRow& row : menuTable())
        if (row.command != nullptr)
            faults += injectFaults(row.name, row.command);
    EXPECT_GT(faults, 60);
    RecordProperty("faults", faults);
}

TEST(Faults, NeverComeThroughTheToolbar) {
    for (const ToolbarCommand& row : toolbarCommands()) {
        const Work run = [&row](frmQuillet& form) { form.Toolbar1_ButtonClick(row.key); };
        for (int fault = 0; outcomeOf(run, fault).failed; ++fault)
            EXPECT_FALSE(outcomeOf(run, fault).passedOn) << row.key << " " << fault;
    }
}

} // namespace
} // namespace quillet
