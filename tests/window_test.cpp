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
        {"keys", form.keyboard, inscriptMode},
        {"clip", form.desktop.clipboard, "Q"},
        {"memory", form.memory_box, "MEM"},
        {"used", form.FontUsed, krutiDev010},
        {"font", box.FontName(), krutiDev010},
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

TEST_F(Window, TheToolbarReadsAsDesignedWithIconsAndCommands) {
    std::string text;
    for (const ToolbarButton& button : toolbarButtons()) {
        if (button.isSeparator()) {
            text += "- ";
            continue;
        }
        const std::string key = button.key;
        text += key + (button.tooltip == key ? "" : "(" + std::string(button.tooltip) + ")") + " ";
        const auto isImage = [&](const ImageRow& row) {
            return row.key == std::string(button.image);
        };
        const auto isKey = [&](const ToolbarCommand& row) { return row.key == key; };
        EXPECT_TRUE(std::any_of(imageList.begin(), imageList.end(), isImage)) << key;
        const auto& commands = toolbarCommands();
        EXPECT_EQ(std::count_if(commands.begin(), commands.end(), isKey), 1) << key;
    }
    EXPECT_EQ(text, "New Open Save Print - Cut Copy Paste - Bold Italic Underline - ClearAll(Clear "
                    "All Text) - KeyboardOld(Keyboard Old (Remington)) KeyboardNew(Keyboard "
                    "Inscript) - Sentences(Count Lines) Characters(Count Characters) Words(Count "
                    "Words) - AddMemory(Clear memory and add new text to it) AppendMemory(Append "
                    "more text to memory) PasteFromMemory(Paste text from memory) EmptyMemory("
                    "Empty memory) - Email(Email text) Web(Surf Hindi News Website) - Layout("
                    "Keyboard Layouts) Help(How to use Quillet) ");
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
    {"mnuNormal KeyboardOld", "=, keys=Normal"},
    {"mnuFind", "=; show frmFind"},
    {"mnuReplace", "=; show frmReplace"},
    {"mnuArial", "=, keys=Normal, used=Arial, font=Arial"},
    {"mnuKruti20", "=, used=Kruti Dev 020, font=Kruti Dev 020"},
    {"mnuFontUsed", "=; ask Font currently being used is: Kruti Dev 010 [OK] Quillet: Font Info"},
    {"mnuKeyboardUsed",
     "=; ask Keyboard currently being used is: Inscript [OK] Quillet: Keyboard Info"},
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
    EXPECT_EQ(look(form), effectOf(name));
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

KeyStroke strokeOf(char letter, std::int16_t held) {
    const std::uint32_t place = glyphCode(letter);
    if (letter == 'C')
        return {.scanCode = place, .keyCode = key::ctrl, .shift = held, .character = {}};
    const auto code = static_cast<std::int16_t>(std::toupper(letter));
    const auto typed = static_cast<std::int16_t>(held == modifier::ctrl ? code - '@' : letter);
    return {.scanCode = place, .keyCode = code, .shift = held, .character = typed};
}

// "+k" presses a key and "-k" releases it, "C" is Ctrl; "<" loses the focus, "m" gains it from a
// menu, "e" from elsewhere.
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
        {"a menu shortcut raises no key-press", "|abc", "+C+d-d-C", "|abc"},
        {"nor does an inert one", "|abc", "+C+p-p-C", "|abc"},
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
    desktop.answers = {Answer::No, Answer::No};
    play(keyboard, "+C+N+N");
    EXPECT_EQ(desktop.calls.size(), 1U) << "holding Ctrl+N asks once";
    place(form.txtMain, "|ab|c");
    keyboard.press(
        {.scanCode = 119, .keyCode = key::del, .shift = modifier::shift, .character = {}});
    EXPECT_EQ(desktop.clipboard + "/" + form.txtMain.Text(), "ab/c") << "Shift+Delete cuts";
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
    form.mnuPasteFromMemory_Click();
    EXPECT_EQ(form.txtMain.Text(), "abc\r\nabc\r\nabc");
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
    splash.control("Image1").click();
    splash.close();
    for (int tick = 1; tick <= 5; ++tick)
        timer.click();
    EXPECT_TRUE(desktop.forms.calls.empty());
    timer.click();
    using Calls = std::vector<std::string>;
    EXPECT_EQ(desktop.forms.calls, (Calls{"show frmQuillet", "hide frmSplash"}));
}

} // namespace
} // namespace quillet
