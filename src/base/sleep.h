#pragma once

/// Not a pause: lets the event loop handle what is waiting, of all kinds, for at most `ms` milliseconds, so
/// that the windows stay alive inside a long command. The caller holds SLEEP, or is otherwise safe from
/// re-entry.
void sleep(int ms);
