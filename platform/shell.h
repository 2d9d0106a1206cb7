// The system's way to open files and web addresses.
#pragma once

#include <string>

namespace quillet {

class Shell {
  public:
    virtual ~Shell() = default;

    /// What `ShellExecuteA` returns beside codes of success, which are above 32.
    enum Result {
        FileNotFound = 2,
        PathNotFound = 3,
        NoAssociation = 31, // no program opens this kind of file
        LibraryNotFound = 32,
        Success = 33,
    };

    /// Runs an operation such as "open" on a file or a web address with the program that the
    /// system has for it, without waiting for that. A relative file is looked for in `directory`.
    virtual int ShellExecuteA(const std::string& operation, const std::string& file,
                              const std::string& parameters, const std::string& directory,
                              int showCommand) = 0;

    /// The folder that the files of the program are named from: it holds "help".
    virtual std::string programFolder() const = 0;
};

} // namespace quillet
