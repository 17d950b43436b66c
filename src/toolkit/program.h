/// The end of the program.
#pragma once

namespace tandrel
{

/// Ends the process: no form loads, shows or ticks any more, and the event loop returns. The handler that calls it goes
/// on to its own end.
void endProgram();
bool programEnded();

/// Takes down all forms that are still there, without their handlers. Called behind the event loop.
void discardForms();

/// For tests, which run many programs in one process.
void beginProgram();

} // namespace tandrel
