#include "comm/web_commands.h"

#include "comm/fixed_addresses.h"
#include "platform/desktop.h"
#include "platform/message_box.h"

namespace quillet {

WebCommands::WebCommands(const Desktop& desktop)
    : messageBox_(desktop.messageBox),
      module1_(desktop.shell, desktop.messageBox),
      web_(desktop.forms, desktop.screen) {}

void WebCommands::mnuSurfNews_Click() {
    messageBox_.show({.text = "News website is loading, please wait a while"});
    web_.show();
}

void WebCommands::mnuTips_Click() {
    module1_.ShellOpen("help/how_to_use_quillet.htm");
}

void WebCommands::mnuLayouts_Click() {
    module1_.ShellOpen("help/layouts.htm");
}

void WebCommands::mnuVisitSite_Click() {
    module1_.ShellOpen(website);
}

} // namespace quillet
