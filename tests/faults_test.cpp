// Every command with each call that it makes of the desktop failing in turn.
#include "tests/test_window.h"
#include "window/menu_table.h"
#include "window/toolbar_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace quillet {
namespace {

using Work = std::function<void(frmQuillet&)>;

const char* const path = "/d/old.qlt";

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
            form.NameofFile,
            form.Caption(),
            desktop.disk.at("/d/other.qlt"),
            form.NewFile ? "new" : "",
            form.textboxused ? "used" : ""};
}

bool isHourglassLeft(const FakeDesktop& desktop) {
    const auto& calls = desktop.calls;
    const auto last = std::find_if(calls.rbegin(), calls.rend(), [](const std::string& call) {
        return call == "hourglass" || call == "default pointer";
    });
    return last != calls.rend() && *last == "hourglass";
}

struct Outcome {
    bool failed = false; // the call that was to fail was made
    bool passedOn = false;
    std::vector<std::string> values;
    bool hourglass = false;
    std::string lastMessage;
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
    outcome.hourglass = isHourglassLeft(form.desktop);
    for (const std::string& call : form.desktop.calls)
        if (call.starts_with("ask "))
            outcome.lastMessage = call;
    return outcome;
}

// Returns the number of calls that failed in turn.
int injectFaults(const std::string& name, const Work& run, bool mayPassOn) {
    TestWindow untouched;
    prepare(untouched);
    const std::vector<std::string> before = values(untouched);
    const std::vector<std::string> after = outcomeOf(run, -1).values;
    for (int fault = 0;; ++fault) {
        SCOPED_TRACE(name + ", call " + std::to_string(fault));
        const Outcome outcome = outcomeOf(run, fault);
        if (!outcome.failed)
            return fault;
        EXPECT_EQ(outcome.passedOn, mayPassOn);
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_TRUE(outcome.values[i] == before[i] || outcome.values[i] == after[i])
                << outcome.values[i];
        EXPECT_EQ(outcome.hourglass, name == "mnuPrint" && fault > 3) << "from PrintText on";
        if (name == "mnuSendMail") {
            EXPECT_EQ(outcome.lastMessage,
                      "ask Sorry! You did not specify a necessary value [OK] Quillet1.0");
        }
    }
}

TEST(Faults, LeaveEveryCommandInADescribedState) {
    int faults = 0;
    for (const MenuRow& row : menuTable())
        if (row.command != nullptr) {
            const std::string name = row.name;
            const bool usesClipboard = name == "mnuCut" || name == "mnuCopy" || name == "mnuPaste";
            faults += injectFaults(
                name, [&row](frmQuillet& form) { (form.*row.command)(); }, usesClipboard);
        }
    faults += injectFaults("Convert", &frmQuillet::ConvertToPdf, false);
    EXPECT_GT(faults, 40);
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
