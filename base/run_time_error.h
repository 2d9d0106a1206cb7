// How steps fail, how failures are skipped, and how the program ends at once.
#pragma once

#include <exception>

namespace quillet {

/// The run-time errors that a command can meet, by their public numbers.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    ComponentFailed = 440,
    PrinterError = 482,
    NecessaryValueMissing = 22001, // the program's own
    DialogCancelled = 32755,
};

/// A failure that a command may skip or handle. Where nothing handles it, the program reports
/// number and text and ends.
class RunTimeError : public std::exception {
  public:
    explicit RunTimeError(ErrorNumber number) : number_(number) {}

    int number() const { return static_cast<int>(number_); }

    /// The text of the error's number, without the number.
    const char* what() const noexcept override;

  private:
    ErrorNumber number_;
};

/// Thrown to end the program at once. It derives from nothing, so that no handler of errors can
/// catch it on its way to the event loop.
struct EndOfProgram {};

/// Runs the steps of a command that skips failing ones, in order: an error ends its own step
/// silently, a lack of memory too. `EndOfProgram` passes.
template <class... Steps>
void resumeNext(Steps&&... steps) {
    const auto run = [](auto&& step) {
        try {
            step();
        } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): skipping is the contract
        }
    };
    (run(steps), ...);
}

} // namespace quillet
