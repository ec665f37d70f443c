#pragma once

#include <functional>

/// Runs the body of a command. Exhausted memory is caught: the line "<what> bad_alloc caught: <reason>" goes
/// to the log and the shared dialog tells the user to load less. Returns false in that case. Anything else
/// that the body throws goes on to the application's own guard.
bool runGuarded(const char* what, const std::function<void()>& body);

/// Tells the user that memory is exhausted, through the shared dialog.
void showOutOfMemory();
