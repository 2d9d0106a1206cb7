// The tables of the main window, each row walked to its handler, and the keys on their way.
#include "comm/fixed_addresses.h"
#include "platform/key_codes.h"
#include "tests/test_window.h"
#include "window/box_keyboard.h"
#include "window/context_menu.h"
#include "window/frm_splash.h"
#include "window/image_list.h"
#include "window/menu_table.h"
#include "window/toolbar_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>

namespace quillet {
namespace {

// All that a command of the tables can change.
std::string look(const TestWindow& form) {
    const FakeDesktop& desktop = form.desktop;
    const EditBox& box = form.txtMain;
    std::string look = box.Text() + "|" + std::to_string(box.SelStart()) + "+" +
                       std::to_string(box.SelLength()) + "|" + form.keyboard + "|" +
                       desktop.clipboard + "|";
    look += std::string(box.FontBold() ? "B" : "") + (box.FontItalic() ? "I" : "") +
            (box.FontUnderline() ? "U" : "");
    if (form.FontUsed != krutiDev010 || box.FontName() != krutiDev010)
        look += form.FontUsed == box.FontName() ? form.FontUsed : "two fonts";
    if (box.FontSize() != 15.75)
        look += std::to_string(static_cast<int>(box.FontSize()));
    look += (form.memory_box != "MEM" ? "=" + form.memory_box : "") + "|" + form.Caption();
    for (const auto* calls : {&desktop.calls, &desktop.forms.calls})
        for (const std::string& call : *calls)
            look += "|" + call;
    return look;
}

struct Window : ::testing::Test {
    TestWindow form;
    FakeDesktop& desktop = form.desktop;
    BoxKeyboard keyboard{form};

    void SetUp() override { form.txtMain.Text("abc"); }
};

TEST_F(Window, LoadSetsTheDefaultsAndTheLayout) {
    const EditBox& box = form.txtMain;
    EXPECT_EQ(form.Caption(), "Quillet: Inscript Based Basic Devnagari Word Processor");
    EXPECT_EQ(box.FontName(), "Kruti Dev 010");
    EXPECT_EQ(box.FontSize(), 15.75);
    EXPECT_EQ(form.FontUsed + form.keyboard, "Kruti Dev 010Inscript");
    EXPECT_TRUE(form.NewFile && !form.textboxused && form.NameofFile.empty());
    EXPECT_EQ(box.Left().value, 100);
    EXPECT_EQ(box.Top().value, 550);
    EXPECT_EQ(box.Width().value, 15168);
    EXPECT_EQ(box.Height().value, 9600);
}

TEST_F(Window, TheMenuReadsAsDesigned) {
    std::string text;
    for (const MenuRow& row : menuTable()) {
        text += std::string(row.level == 0 ? "\n" : " ") +
                std::string(static_cast<std::size_t>(row.level), '>') + row.caption;
        if (row.shortcut != 0)
            text += std::string("^") + row.shortcut;
    }
    EXPECT_EQ(text,
              "\n&File >New^N >Open^O >- >Save >Save As^S >- >Print^P >Close >- >Exit^E"
              "\n&Edit >Cut^X >Copy^C >Paste^V >- >Select All^A >Clear All^L >- >Find^F >Replace^R"
              "\n&Keyboard >Inscript^I >Old Style^D"
              "\nF&ormat >Change Font >>&Arial >>&Kruti Dev 010 >>&Kruti Dev 020"
              " >&Change Font Size >>8 >>10 >>12 >>14 >>16 >>20 >>24 >>28 >>32 >>36 >>40"
              " >Font In Use >&Keyboard In Use^K"
              "\n&Calculate >&Words^W >C&haracters^H >&Sentences^Y"
              "\n&Web >&Send Mail >&Surf Hindi News"
              "\n&Memory >&Put to memory >&Append to memory >Paste &from memory >&Empty memory"
              "\n&Help >&How to use Quillet >&Keyboard Layouts >About &Quillet^M >&Visit Website");
}

TEST_F(Window, EveryToolbarKeyHasAnIconACommandRowAndAPlace) {
    std::string text;
    std::string tooltips;
    for (const ToolbarButton& button : toolbarButtons()) {
        text += button.isSeparator() ? " -" : std::string(" ") + button.key;
        if (button.isSeparator())
            continue;
        if (std::string_view(button.tooltip) != button.key)
            tooltips += std::string(button.tooltip) + "|";
        const auto isImage = [&](const ImageRow& row) {
            return std::string_view(row.key) == button.image;
        };
        const auto isKey = [&](const ToolbarCommand& row) {
            return std::string_view(row.key) == button.key;
        };
        EXPECT_TRUE(std::any_of(imageList.begin(), imageList.end(), isImage)) << button.key;
        EXPECT_EQ(std::count_if(toolbarCommands().begin(), toolbarCommands().end(), isKey), 1)
            << button.key;
    }
    EXPECT_EQ(text, " New Open Save Print - Cut Copy Paste - Bold Italic Underline - ClearAll -"
                    " KeyboardOld KeyboardNew - Sentences Characters Words - AddMemory AppendMemory"
                    " PasteFromMemory EmptyMemory - Email Web - Layout Help");
    EXPECT_EQ(tooltips, "Clear All Text|Keyboard Old (Remington)|Keyboard Inscript|Count Lines|"
                        "Count Characters|Count Words|Clear memory and add new text to it|"
                        "Append more text to memory|Paste text from memory|Empty memory|Email text|"
                        "Surf Hindi News Website|Keyboard Layouts|How to use Quillet|");
    std::string images;
    for (const ImageRow& row : imageList)
        images += std::string(row.key) + (*row.tag != '\0' ? "=" : "") + row.tag + "|";
    EXPECT_EQ(images, "Underline|Copy|Cut|Italic|New|Open|Paste|Print|Save|Bold|"
                      "KeyboardRemington=Keyboard Remington|KeyboardInscript=Keyboard Inscript|"
                      "ClearScreen=Clear Screen|Lines=Count Lines|Words|Characters|AddMemory|"
                      "AppendMemory|PasteFromMemory|ClearMemory|Email=Send Email|"
                      "Web=Surf Hindi News|Help=How To Use Quillet|Layout=Keyboard Layouts|"
                      "Convert=Convert to PDF|");
}

// What a command does to a window with "abc", of which "b" is selected, with "xyz" to undo, "zzz"
// to redo and "Q" on the clipboard. Rows that are not here change nothing.
const std::map<std::string, std::string> effects = {
    {"mnuNew", "|0+0|Inscript|Q||Quillet: Hindi Word Processor  (New Unsaved File)|ask Do you want "
               "to save changes made to file? [Yes/No] Quillet1.0"},
    {"mnuOpen",
     "abc|1+1|Inscript|Q||Quillet: Hindi Word Processor  |ask Do you want to save "
     "changes made to file? [Yes/No] Quillet1.0|open at '': *.qlt* *.txt* *.htm* *.*|read "},
    {"mnuSave", "abc|1+1|Inscript|Q||T|save at '': *.qlt* *.txt* *.*"},
    {"mnuSaveAs", "abc|1+1|Inscript|Q||T|save at '': *.qlt* *.txt* *.*"},
    {"mnuPrint", "abc|1+1|Inscript|Q||T|choose printer|hourglass|default pointer"},
    {"mnuClose", "abc|1+1|Inscript|Q||T|ask Do you want to save changes made since you last opened "
                 "the file? [Yes/No/Cancel] Quillet1.0"},
    {"mnuExit",
     "abc|1+1|Inscript|Q||T|ask Do you want to save the file? [Yes/No/Cancel] Quillet1.0"},
    {"mnuCut", "ac|1+0|Inscript|b||T"},
    {"mnuCopy", "abc|1+1|Inscript|b||T"},
    {"mnuPaste", "aQc|2+0|Inscript|Q||T"},
    {"mnuSelectAll", "abc|0+3|Inscript|Q||T"},
    {"mnuClearAll", "|0+0|Inscript|Q||T"},
    {"mnuInscript", "abc|1+1|Inscript|Q||T"},
    {"mnuNormal", "abc|1+1|Normal|Q||T"},
    {"mnuFind", "abc|1+1|Inscript|Q||T|show frmFind"},
    {"mnuReplace", "abc|1+1|Inscript|Q||T|show frmReplace"},
    {"mnuArial", "abc|1+1|Normal|Q|Arial|T"},
    {"mnuKruti10", "abc|1+1|Inscript|Q||T"},
    {"mnuKruti20", "abc|1+1|Inscript|Q|Kruti Dev 020|T"},
    {"mnuFontUsed", "abc|1+1|Inscript|Q||T|ask Font currently being used is: Kruti Dev 010 [OK] "
                    "Quillet: Font Info"},
    {"mnuKeyboardUsed", "abc|1+1|Inscript|Q||T|ask Keyboard currently being used is: Inscript [OK] "
                        "Quillet: Keyboard Info"},
    {"mnuWords", "abc|1+1|Inscript|Q||T|ask Number of words in the file are: 1 [OK] "
                 "Quillet: Word Count"},
    {"mnuCharacters", "abc|1+1|Inscript|Q||T|ask Number of characters in the file are: 3 [OK] "
                      "Quillet: Character Count"},
    {"mnuSentences", "abc|1+1|Inscript|Q||T|ask Number of sentences in the file are: 1 [OK] "
                     "Quillet: Line Count"},
    {"mnuSendMail",
     "abc|1+1|Inscript|Q||T|hourglass|MailOptionFirst 0|MailOptionSecond 1|AddressDelimiter ;|"
     "RelayHost " +
         std::string(mailRelay) +
         "|input Email address of the sender (yours) [] Quillet Email|"
         "SenderAddress |SenderName |input Email address of the recipient [] Quillet Email|"
         "ask Sorry! You did not specify a necessary value [OK] Quillet1.0|default pointer"},
    {"mnuAddMemory", "abc|1+1|Inscript|Q|=abc|T"},
    {"mnuAppendMemory", "abc|1+1|Inscript|Q|=MEM\r\nabc|T"},
    {"mnuPasteFromMemory", "abc\r\nMEM|0+0|Inscript|Q||T"},
    {"mnuEmptyMemory", "abc|1+1|Inscript|Q|=|T"},
    {"mnuSurfNews", "abc|1+1|Inscript|Q||T|ask News website is loading, please wait a while [OK] "
                    "Quillet1.0|show frmWeb"},
    {"mnuTips", "abc|1+1|Inscript|Q||T|open help/how_to_use_quillet.htm '' /program 0"},
    {"mnuLayouts", "abc|1+1|Inscript|Q||T|open help/layouts.htm '' /program 0"},
    {"mnuVisitSite", "abc|1+1|Inscript|Q||T|open " + std::string(website) + " '' /program 0"},
    {"mnuAbout", "abc|1+1|Inscript|Q||T|show frmAbout"},
    {"Bold", "abc|1+1|Inscript|Q|B|T"},
    {"Italic", "abc|1+1|Inscript|Q|I|T"},
    {"Underline", "abc|1+1|Inscript|Q|U|T"},
    {"Convert", "abc|1+1|Inscript|Q||T|ask Please save your file before conversion [OK] "
                "Quillet1.0"},
    {"&Undo", "xyz|0+0|Inscript|Q||T"},
    {"&Redo", "zzz|0+0|Inscript|Q||T"},
    {"&Delete", "ac|1+0|Inscript|Q||T"},
};

// Toolbar keys and entries of the context menu that are menu commands.
const std::map<std::string, std::string> sameAs = {
    {"New", "mnuNew"},
    {"Open", "mnuOpen"},
    {"Save", "mnuSave"},
    {"Print", "mnuPrint"},
    {"Web", "mnuSurfNews"},
    {"Help", "mnuTips"},
    {"Layout", "mnuLayouts"},
    {"Cut", "mnuCut"},
    {"Copy", "mnuCopy"},
    {"Paste", "mnuPaste"},
    {"ClearAll", "mnuClearAll"},
    {"Sentences", "mnuSentences"},
    {"Characters", "mnuCharacters"},
    {"Words", "mnuWords"},
    {"Email", "mnuSendMail"},
    {"AddMemory", "mnuAddMemory"},
    {"AppendMemory", "mnuAppendMemory"},
    {"PasteFromMemory", "mnuPasteFromMemory"},
    {"EmptyMemory", "mnuEmptyMemory"},
    {"KeyboardNew", "mnuInscript"},
    {"KeyboardOld", "mnuNormal"},
    {"Cu&t", "mnuCut"},
    {"&Copy", "mnuCopy"},
    {"&Paste", "mnuPaste"},
    {"Select &All", "mnuSelectAll"},
};

constexpr std::string_view sizeName = "mnuFontSize"; // and behind it the size

void expectEffect(const std::string& name, const std::function<void(frmQuillet&)>& run) {
    SCOPED_TRACE(name);
    TestWindow form;
    FakeDesktop& desktop = form.desktop;
    form.Caption("T");
    form.txtMain.load(GapBuffer("abc"));
    for (const char* text : {"xyz", "abc", "zzz"})
        form.txtMain.Text(text);
    form.txtMain.undo();
    form.txtMain.select({1, 2});
    form.textboxused = true;
    form.memory_box = "MEM";
    desktop.answers = {Answer::Cancel};
    desktop.clipboard = "Q";
    desktop.forms.calls.clear();
    run(form);
    std::erase(desktop.forms.calls, "caption frmQuillet");
    const auto alias = sameAs.find(name);
    const auto effect = effects.find(alias == sameAs.end() ? name : alias->second);
    const std::string size = name.starts_with(sizeName) ? name.substr(sizeName.size()) : "";
    const std::string unchanged = "abc|1+1|Inscript|Q|" + size + "|T";
    EXPECT_EQ(look(form), effect == effects.end() ? unchanged : effect->second);
}

TEST(WindowTables, EveryRowReachesItsHandler) {
    const auto walk = [](const auto& row, const char* name) {
        expectEffect(name, [&](frmQuillet& form) {
            if (row.command != nullptr)
                (form.*row.command)();
        });
    };
    for (const MenuRow& row : menuTable())
        walk(row, row.name);
    for (const ContextRow& row : contextMenu())
        walk(row, row.caption);
    for (const char* key : {"Bold", "Italic", "Underline", "Convert", "save", "", "Nothing"})
        expectEffect(key, [&](frmQuillet& form) { form.Toolbar1_ButtonClick(key); });
    for (const ToolbarButton& button : toolbarButtons())
        if (!button.isSeparator())
            expectEffect(button.key,
                         [&](frmQuillet& form) { form.Toolbar1_ButtonClick(button.key); });
}

TEST_F(Window, TheToolbarSkipsAFailureThatTheMenuDoesNot) {
    desktop.clipboardFails = true;
    form.Toolbar1_ButtonClick("Paste");
    EXPECT_THROW(form.mnuPaste_Click(), RunTimeError);
    EXPECT_EQ(form.txtMain.Text(), "abc");
}

// Keys as "d" down and "u" up with their characters; "C" is Ctrl, "S" Shift, "~" loses the focus.
KeyStroke strokeOf(char letter, std::int16_t held) {
    if (letter == 'C' || letter == 'S') {
        const bool isCtrl = letter == 'C';
        return {.scanCode = static_cast<std::uint32_t>(letter),
                .keyCode = isCtrl ? key::ctrl : key::shift,
                .shift = held,
                .character = {}};
    }
    const auto upper = static_cast<std::int16_t>(std::toupper(letter));
    const bool ctrl = (held & modifier::ctrl) != 0;
    const auto typed = static_cast<std::int16_t>(ctrl ? upper - '@' : letter);
    return {.scanCode = static_cast<std::uint32_t>(letter),
            .keyCode = upper,
            .shift = held,
            .character = typed};
}

TEST_F(Window, KeysGoToTheBoxOrToTheMenu) {
    const struct {
        const char* name;
        const char* keys; // pairs of "+" or "-" and a key; "~" alone
        const char* text; // of a box that held "abc" with the caret at its start
        bool used;
        bool ctrlPending;
    } rows[] = {
        {"a key", "+k-k", "dabc", true, false},
        {"a second glyph comes at the release", "+E-E", "vkabc", true, false},
        {"a held key repeats, its second glyph does not", "+E+E+E-E", "vvvkabc", true, false},
        {"a menu shortcut raises no key-press", "+C+d-d-C", "abc", false, false},
        {"nor does an inert one", "+C+p-p-C", "abc", false, false},
        {"a command on the box's text does", "+C+l-l-C", "", true, false},
        {"a combination that commands nothing does too", "+C+q-q-C", "abc", true, false},
        {"Ctrl held on sets its mark again", "+C+l-l+q", "", true, true},
        {"the focus goes while Ctrl is held", "+C~", "abc", false, false},
        {"the focus goes with a second glyph pending", "+E~", "vkabc", true, false},
        {"the focus goes, the last key first", "+C+q~", "abc", true, false},
        {"a lone release", "-k", "abc", false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TestWindow window;
        BoxKeyboard keys(window);
        window.txtMain.Text("abc");
        std::int16_t held = 0;
        for (const char* at = row.keys; *at != '\0'; ++at) {
            if (*at == '~') {
                keys.focusLost();
                continue;
            }
            const bool down = *at++ == '+';
            if (*at == 'C')
                held = down ? modifier::ctrl : std::int16_t{0};
            down ? keys.press(strokeOf(*at, held)) : keys.release(strokeOf(*at, held));
        }
        EXPECT_EQ(window.txtMain.Text(), row.text);
        EXPECT_EQ(window.textboxused, row.used);
        EXPECT_EQ(window.Control_key_pressed, row.ctrlPending);
    }
}

TEST_F(Window, AShortcutNeedsCtrlAloneAndRunsOnce) {
    EXPECT_FALSE(findKeyCommand('N', modifier::ctrl | modifier::shift));
    EXPECT_FALSE(findKeyCommand('N', 0));
    desktop.answers = {Answer::No, Answer::No};
    keyboard.press({.scanCode = 57, .keyCode = 'N', .shift = modifier::ctrl, .character = 14});
    keyboard.press({.scanCode = 57, .keyCode = 'N', .shift = modifier::ctrl, .character = 14});
    EXPECT_EQ(desktop.calls.size(), 1U) << "holding Ctrl+N asks once";

    form.txtMain.Text("abc");
    form.txtMain.SelLength(2);
    keyboard.press(
        {.scanCode = 119, .keyCode = key::del, .shift = modifier::shift, .character = {}});
    EXPECT_EQ(desktop.clipboard + "/" + form.txtMain.Text(), "ab/c") << "Shift+Delete cuts";
}

TEST_F(Window, AKeyThatChoseFromAMenuRaisesNothing) {
    form.txtMain.Text("d~");
    form.txtMain.SelStart(2);
    keyboard.focusGained(FocusFrom::Menu);
    keyboard.release({.scanCode = 33, .keyCode = 'P', .character = {}});
    EXPECT_EQ(form.txtMain.Text(), "d~");
    keyboard.focusGained(FocusFrom::Elsewhere);
    keyboard.release({.scanCode = 33, .keyCode = 'P', .character = {}});
    EXPECT_EQ(form.txtMain.Text(), "D");
}

TEST_F(Window, AReleaseReportedWhenTheFocusWentIsNotRepeated) {
    form.txtMain.Text("dk");
    form.txtMain.SelStart(2);
    for (const char letter : {'C', 'f'})
        keyboard.press(strokeOf(letter, modifier::ctrl));
    keyboard.focusLost();
    keyboard.release(strokeOf('f', modifier::ctrl));
    EXPECT_EQ(form.txtMain.Text(), "dk");
    keyboard.focusGained(FocusFrom::Elsewhere);
    keyboard.release(strokeOf('f', 0)); // of a key that closed a dialog
    EXPECT_EQ(form.txtMain.Text(), "fd");
}

TEST_F(Window, FontsSetTheKeyboardAndKeepSizeAndStyle) {
    form.toggleBold();
    form.mnuFontSize40_Click();
    form.mnuNormal_Click();
    form.mnuKruti20_Click();
    EXPECT_EQ(form.FontUsed + form.keyboard, "Kruti Dev 020Inscript");
    EXPECT_TRUE(form.txtMain.FontBold() && form.txtMain.FontSize() == 40);
    form.mnuArial_Click();
    form.mnuNew_Click();
    EXPECT_EQ(form.FontUsed + form.txtMain.FontName() + form.keyboard, "ArialArialNormal");
}

TEST_F(Window, TheMemoryTakesAndGivesWholeTexts) {
    form.txtMain.SelLength(1);
    form.mnuAddMemory_Click();
    form.mnuClearAll_Click();
    form.mnuPasteFromMemory_Click();
    EXPECT_EQ(form.txtMain.Text(), "abc");
    form.mnuEmptyMemory_Click();
    form.mnuAppendMemory_Click();
    form.mnuAppendMemory_Click();
    EXPECT_EQ(form.memory_box, "abc\r\nabc");
    form.mnuClearAll_Click();
    form.mnuAppendMemory_Click();
    EXPECT_EQ(form.memory_box, "abc\r\nabc\r\n");
    form.txtMain.undo();
    EXPECT_EQ(form.txtMain.Text(), "abc") << "Clear All is one step";
    form.mnuEmptyMemory_Click();
    form.mnuPasteFromMemory_Click();
    EXPECT_EQ(form.txtMain.Text(), "abc\r\n");
    form.txtMain.undo();
    EXPECT_EQ(form.txtMain.Text(), "abc");
    EXPECT_FALSE(form.textboxused);
}

TEST_F(Window, TheSplashGivesWayAtItsSixthTick) {
    form.unload();
    frmSplash splash(desktop.forms, form);
    splash.show();
    desktop.forms.calls.clear();
    Control& timer = splash.control("Timer1");
    EXPECT_EQ(timer.design().interval, 1000);
    splash.control("Image1").click();
    splash.close();
    for (int tick = 1; tick <= 5; ++tick)
        timer.click();
    EXPECT_TRUE(desktop.forms.calls.empty());
    timer.click();
    using Calls = std::vector<std::string>;
    EXPECT_EQ(desktop.forms.calls, (Calls{"show frmQuillet", "hide frmSplash"}));
}

TEST_F(Window, AboutShowsItsTextsAndCloses) {
    frmAbout about(desktop.forms);
    about.show();
    about.show();
    std::string texts;
    for (const Control& control : about.controls())
        texts += control.Caption() + "|";
    EXPECT_NE(texts.find("|The Quillet developers|https://"), std::string::npos) << texts;
    about.control("cmdClose").click();
    using Calls = std::vector<std::string>;
    EXPECT_EQ(desktop.forms.calls, (Calls{"show frmAbout", "show frmAbout", "hide frmAbout"}));
}

} // namespace
} // namespace quillet
