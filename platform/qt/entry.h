// The one way from an event of the toolkit to the program's keys and commands.
#pragma once

#include <functional>

namespace quillet {

/// Runs `work` for an event. Nothing thrown crosses the toolkit's frames: `EndOfProgram` ends the
/// program, and an error that nothing has caught is reported first. Once the program has ended,
/// events run nothing any more.
void enter(const std::function<void()>& work);

/// Runs `work` when the event is done that the program is busy with, or at once.
void afterwards(const std::function<void()>& work);

/// Ends the program: every window disappears and all event loops return.
void endProgram(int exitCode = 0);

/// Whether the program has ended, and only has to leave what it is busy with.
bool hasEnded();

/// Handles events until the program ends, if it has not ended already. Returns its exit code.
int runEvents();

/// To be called when a modal loop returns: goes on ending the program where that has begun
/// meanwhile, by throwing `EndOfProgram`.
void leaveModalLoop();

} // namespace quillet
