// Opens files and addresses with the programs of the desktop.
#pragma once

#include "platform/shell.h"

namespace quillet {

/// By xdg-open. What it would say of its own failures is found out before, since it may run as
/// long as the program that it opens.
class QtShell : public Shell {
  public:
    int ShellExecuteA(const std::string& operation, const std::string& file,
                      const std::string& parameters, const std::string& directory,
                      int showCommand) override;
    std::string programFolder() const override;
};

} // namespace quillet
