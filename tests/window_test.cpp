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
#include <array>
#include <cctype>
#include <functional>
#include <utility>

namespace quillet {
namespace {

// The marked text, what else a command of the tables changed from its usual value, and the calls.
std::string look(const TestWindow& form) {
    const EditBox& box = form.txtMain;
    const std::array<std::string, 3> values[] = {
        {"keys", form.keyboard, "K"},
        {"clip", form.desktop.clipboard, "Q"},
        {"memory", form.memory_box, "MEM"},
        {"used", form.FontUsed, "F"},
        {"font", box.FontName(), "F"},
        {"size", std::to_string(static_cast<int>(box.FontSize())), "15"},
        {"bold", box.FontBold() ? "on" : "off", "off"},
        {"italic", box.FontItalic() ? "on" : "off", "off"},
        {"underline", box.FontUnderline() ? "on" : "off", "off"},
        {"title", form.Caption(), "T"}};
    std::string look = marked(box);
    for (const auto& [name, value, usual] : values)
        if (value != usual)
            look.append(", ").append(name).append("=").append(value);
    for (const auto* calls : {&form.desktop.calls, &form.desktop.forms.calls})
        for (const std::string& call : *calls)
            look += "; " + call;
    return look;
}

struct Window : ::testing::Test {
    TestWindow form;
    FakeDesktop& desktop = form.desktop;

    void SetUp() override { form.txtMain.Text("abc"); }
};

TEST_F(Window, LoadSetsTheDefaultsAndTheLayout) {
    const EditBox& box = form.txtMain;
    EXPECT_EQ(form.Caption(), "Quillet: Inscript Based Basic Devnagari Word Processor");
    EXPECT_EQ(box.FontName() + form.FontUsed + form.keyboard, "Kruti Dev 010Kruti Dev 010Inscript");
    EXPECT_TRUE(form.NewFile && !form.textboxused && form.NameofFile.empty());
    EXPECT_EQ(
        (std::array{box.Left().value, box.Top().value, box.Width().value, box.Height().value}),
        (std::array{100.0, 550.0, 15168.0, 9600.0}));
}

TEST(WindowTables, EveryButtonHasAnIcon) {
    for (const ToolbarButton& button : toolbarButtons()) {
        const auto isIts = [&](const ImageRow& row) { return row.key == ""s + button.image; };
        EXPECT_TRUE(button.isSeparator() || std::any_of(imageList.begin(), imageList.end(), isIts))
            << button.tooltip;
    }
}

// What a command does to a window with "abc", of which "b" is selected, with "xyz" to undo, "zzz"
// to redo and "Q" on the clipboard. Each by its names in menu, toolbar and context menu; those that
// are not here change nothing.
const std::pair<std::string, std::string> effects[] = {
    {"mnuNew New",
     "|, title=Quillet: Hindi Word Processor  (New Unsaved File); ask Do you want to save "
     "changes made to file? [Yes/No] Quillet1.0"},
    {"mnuOpen Open",
     "=, title=Quillet: Hindi Word Processor  ; ask Do you want to save changes made to "
     "file? [Yes/No] Quillet1.0; open at '': *.qlt* *.txt* *.htm* *.*; read "},
    {"mnuSave Save", "=; save at '': *.qlt* *.txt* *.*"},
    {"mnuSaveAs", "=; save at '': *.qlt* *.txt* *.*"},
    {"mnuPrint Print", "=; choose printer; hourglass; default pointer"},
    {"mnuClose", "=; ask Do you want to save changes made since you last opened the file? "
                 "[Yes/No/Cancel] Quillet1.0"},
    {"mnuExit", "=; ask Do you want to save the file? [Yes/No/Cancel] Quillet1.0"},
    {"mnuCut Cut", "a|c, clip=b"},
    {"mnuCopy Copy", "=, clip=b"},
    {"mnuPaste Paste", "aQ|c"},
    {"mnuSelectAll SelectAll", "|abc|"},
    {"mnuClearAll ClearAll", "|"},
    {"mnuInscript KeyboardNew", "=, keys=Inscript"},
    {"mnuNormal KeyboardOld", "=, keys=Normal"},
    {"mnuFind", "=; show frmFind"},
    {"mnuReplace", "=; show frmReplace"},
    {"mnuArial", "=, keys=Normal, used=Arial, font=Arial"},
    {"mnuKruti10", "=, keys=Inscript, used=Kruti Dev 010, font=Kruti Dev 010"},
    {"mnuKruti20", "=, keys=Inscript, used=Kruti Dev 020, font=Kruti Dev 020"},
    {"mnuFontUsed", "=; ask Font currently being used is: F [OK] Quillet: Font Info"},
    {"mnuKeyboardUsed", "=; ask Keyboard currently being used is: K [OK] Quillet: Keyboard Info"},
    {"mnuWords Words", "=; ask Number of words in the file are: 1 [OK] Quillet: Word Count"},
    {"mnuCharacters Characters",
     "=; ask Number of characters in the file are: 3 [OK] Quillet: Character Count"},
    {"mnuSentences Sentences",
     "=; ask Number of sentences in the file are: 1 [OK] Quillet: Line Count"},
    {"mnuSendMail Email",
     "=; hourglass; MailOptionFirst 0; MailOptionSecond 1; AddressDelimiter ;; RelayHost " +
         std::string(mailRelay) +
         "; input Email address of the sender (yours) [] Quillet Email; SenderAddress ; "
         "SenderName ; input Email address of the recipient [] Quillet Email; ask Sorry! You did "
         "not specify a necessary value [OK] Quillet1.0; default pointer"},
    {"mnuAddMemory AddMemory", "=, memory=abc"},
    {"mnuAppendMemory AppendMemory", "=, memory=MEM\r\nabc"},
    {"mnuPasteFromMemory PasteFromMemory", "|abc\r\nMEM"},
    {"mnuEmptyMemory EmptyMemory", "=, memory="},
    {"mnuSurfNews Web",
     "=; ask News website is loading, please wait a while [OK] Quillet1.0; show frmWeb"},
    {"mnuTips Help", "=; open help/how_to_use_quillet.htm '' /program 0"},
    {"mnuLayouts Layout", "=; open help/layouts.htm '' /program 0"},
    {"mnuVisitSite", "=; open " + std::string(website) + " '' /program 0"},
    {"mnuAbout", "=; show frmAbout"},
    {"Bold", "=, bold=on"},
    {"Italic", "=, italic=on"},
    {"Underline", "=, underline=on"},
    {"Convert", "=; ask Please save your file before conversion [OK] Quillet1.0"},
    {"Undo", "|xyz"},
    {"Redo", "|zzz"},
    {"Delete", "a|c"}};

std::string effectOf(std::string name) {
    std::erase_if(name, [](char it) { return it == ' ' || it == '&'; });
    for (const auto& [names, effect] : effects)
        if ((" " + names + " ").find(" " + name + " ") != std::string::npos)
            return effect[0] == '=' ? "a|b|c" + effect.substr(1) : effect;
    const bool isSize = name.starts_with("mnuFontSize");
    return isSize ? "a|b|c, size=" + name.substr(11) : "a|b|c";
}

// Returns whether anything was expected.
bool expectEffect(const std::string& name, const std::function<void(frmQuillet&)>& run) {
    SCOPED_TRACE(name);
    TestWindow form;
    FakeDesktop& desktop = form.desktop;
    form.Caption("T");
    form.txtMain.load(TextBuffer("abc"));
    for (const char* text : {"xyz", "abc", "zzz"})
        form.txtMain.Text(text);
    form.txtMain.undo();
    form.txtMain.select({1, 2});
    form.textboxused = true;
    form.keyboard = "K";
    form.FontUsed = "F";
    form.txtMain.FontName("F");
    form.memory_box = "MEM";
    desktop.answers = {Answer::Cancel};
    desktop.clipboard = "Q";
    desktop.forms.calls.clear();
    run(form);
    std::erase(desktop.forms.calls, "caption frmQuillet");
    EXPECT_EQ(look(form), effectOf(name));
    return effectOf(name) != "a|b|c";
}

TEST(WindowTables, EveryRowReachesItsHandler) {
    int effective = 0;
    const auto walk = [&](const auto& row, const char* name) {
        effective += expectEffect(name, [&](frmQuillet& form) {
            if (row.command != nullptr)
                (form.*row.command)();
        });
    };
    for (const MenuRow& row : menuTable())
        walk(row, row.name);
    for (const ContextRow& row : contextMenu())
        walk(row, row.caption);
    std::vector<std::string> keys = {"Convert", "save", "", "Nothing"};
    for (const ToolbarButton& button : toolbarButtons())
        keys.emplace_back(button.isSeparator() ? "" : button.key);
    for (const std::string& key : keys)
        effective += expectEffect(key, [&](auto& form) { form.Toolbar1_ButtonClick(key); });
    EXPECT_EQ(effective, 77) << "entries, buttons and keys that do something";
}

KeyStroke strokeOf(char letter, std::int16_t held) {
    const std::uint32_t place = glyphCode(letter);
    if (letter == 'C')
        return {.scanCode = place, .keyCode = key::ctrl, .shift = held, .character = {}};
    if (letter == 'L')
        return {place, key::left, modifier::shift, {}};
    const auto code = static_cast<std::int16_t>(std::toupper(letter));
    const auto typed = static_cast<std::int16_t>(held == modifier::ctrl ? code - '@' : letter);
    return {.scanCode = place, .keyCode = code, .shift = held, .character = typed};
}

// "+k" presses a key and "-k" releases it, "C" is Ctrl, "L" Shift+Left; "<" loses the focus, "m"
// gains it from a menu, "e" from elsewhere.
void play(BoxKeyboard& keyboard, const char* keys) {
    std::int16_t held = 0;
    for (const char* at = keys; *at != '\0'; ++at) {
        if (*at == '<') {
            keyboard.focusLost();
        } else if (*at == 'm' || *at == 'e') {
            keyboard.focusGained(*at == 'm' ? FocusFrom::Menu : FocusFrom::Elsewhere);
            held = 0;
        } else {
            const bool down = *at++ == '+';
            if (*at == 'C')
                held = down ? modifier::ctrl : std::int16_t{0};
            down ? keyboard.press(strokeOf(*at, held)) : keyboard.release(strokeOf(*at, held));
        }
    }
}

TEST(WindowKeys, GoToTheBoxOrToTheMenu) {
    const struct {
        const char* name;
        const char* before;
        const char* keys;
        const char* after;
    } rows[] = {
        {"a key", "|abc", "+k-k", "d|abc used"},
        {"a second glyph comes at the release", "|abc", "+E-E", "vk|abc used"},
        {"a held key repeats, its second glyph does not", "|abc", "+E+E+E-E", "vvvk|abc used"},
        {"keys that roll over", "|", "+E+k-E-k", "vdk| used"},
        {"two second glyphs, of which the last one stays", "|", "+E+A-E-A", "vv\xA8| used"},
        {"releases that do not count", "|", "+E+ - +2-2-E", "v 2k| used"},
        {"the F key finds another glyph than its own", "|", "+;+e+3-f", "pfk| used"},
        {"a selection ends at its start", "|", "+E+L-E", "k|v used"},
        {"another mode meanwhile", "|", "+E+C+d-d-C-E+x-x+C+i-i-C+k-k", "vxdk| used"},
        {"a menu shortcut raises no key-press", "|abc", "+C+d-d-C", "|abc"},
        {"a command on the box's text does", "|abc", "+C+l-l-C", "| used"},
        {"a combination that commands nothing does too", "|abc", "+C+q-q-C", "|abc used"},
        {"Ctrl held on sets its mark again", "|abc", "+C+l-l+q", "| used, Ctrl"},
        {"the focus goes while Ctrl is held", "|abc", "+C<", "|abc"},
        {"the focus goes with a second glyph pending", "|abc", "+E<", "vk|abc used"},
        {"the focus goes, the last key first", "|abc", "+C+q<", "|abc used"},
        {"a lone release", "|abc", "-k", "|abc"},
        {"the key that chose from a menu", "d~|", "m-p", "d~|"},
        {"and the next", "d~|", "me-p", "D|"},
        {"a release that came when the focus went", "dk|", "+C+f<-f", "dk|"},
        {"and one of a key that closed a dialog", "dk|", "+C+f<-fe-f", "fd|"},
    };
    for (const auto& row : rows) {
        TestWindow window;
        BoxKeyboard keyboard(window);
        place(window.txtMain, row.before);
        play(keyboard, row.keys);
        EXPECT_EQ(marked(window.txtMain) + (window.textboxused ? " used" : "") +
                      (window.Control_key_pressed ? ", Ctrl" : ""),
                  row.after)
            << row.name;
    }
}

TEST_F(Window, AShortcutNeedsCtrlAloneAndRunsOnce) {
    EXPECT_FALSE(findKeyCommand('N', modifier::ctrl | modifier::shift) || findKeyCommand('N', 0));
    BoxKeyboard keyboard(form);
    play(keyboard, "+C+w+w");
    EXPECT_EQ(desktop.calls.size(), 1U) << "holding Ctrl+W counts once";
    place(form.txtMain, "|ab|c");
    keyboard.press(
        {.scanCode = 119, .keyCode = key::del, .shift = modifier::shift, .character = {}});
    EXPECT_EQ(desktop.clipboard + "/" + form.txtMain.Text(), "ab/c") << "Shift+Delete cuts";
}

TEST_F(Window, TheMemoryAddsALineBreakOnlyBehindAText) {
    form.mnuAppendMemory_Click();
    EXPECT_EQ(form.memory_box, "abc");
    form.mnuClearAll_Click();
    form.mnuPasteFromMemory_Click();
    EXPECT_EQ(form.txtMain.Text(), "abc");
}

TEST_F(Window, TheSplashGivesWayAtItsSixthTick) {
    form.unload();
    frmSplash splash(desktop.forms, form);
    splash.show();
    desktop.forms.calls.clear();
    Control& timer = splash.control("Timer1");
    splash.control("Image1").click();
    splash.close();
    for (int tick = 1; tick <= 5; ++tick)
        timer.click();
    EXPECT_TRUE(desktop.forms.calls.empty());
    timer.click();
    EXPECT_EQ(joined(desktop.forms.calls), "show frmQuillet|hide frmSplash|");
}

} // namespace
} // namespace quillet
