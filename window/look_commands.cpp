#include "window/look_commands.h"

#include "platform/main_state.h"
#include "platform/message_box.h"

namespace quillet {

void LookCommands::mnuInscript_Click() {
    state_.keyboard = inscriptMode;
}

void LookCommands::mnuNormal_Click() {
    state_.keyboard = normalMode;
}

void LookCommands::mnuArial_Click() {
    setFont("Arial", normalMode);
}

void LookCommands::mnuKruti10_Click() {
    setFont(krutiDev010, inscriptMode);
}

void LookCommands::mnuKruti20_Click() {
    setFont("Kruti Dev 020", inscriptMode);
}

void LookCommands::toggleBold() {
    state_.txtMain.FontBold(!state_.txtMain.FontBold());
}

void LookCommands::toggleItalic() {
    state_.txtMain.FontItalic(!state_.txtMain.FontItalic());
}

void LookCommands::toggleUnderline() {
    state_.txtMain.FontUnderline(!state_.txtMain.FontUnderline());
}

void LookCommands::mnuFontUsed_Click() {
    tell("Font currently being used is: " + state_.FontUsed, "Quillet: Font Info");
}

void LookCommands::mnuKeyboardUsed_Click() {
    tell("Keyboard currently being used is: " + state_.keyboard, "Quillet: Keyboard Info");
}

void LookCommands::setFont(const char* name, const char* keyboardMode) {
    state_.FontUsed = name;
    state_.txtMain.FontName(name);
    state_.keyboard = keyboardMode;
}

void LookCommands::setSize(double points) {
    state_.txtMain.FontSize(points);
}

void LookCommands::tell(const std::string& text, const char* title) {
    messageBox_.show({.text = text, .title = title});
}

} // namespace quillet
