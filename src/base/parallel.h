#pragma once

#include <functional>
#include <vector>

/// Runs independent tasks on all cores and returns when all have ended.
///
/// `progress`, when given, is called on the calling thread about every 20 ms and once at the end, with the
/// share of ended tasks in 0 to 1. When it returns false, no further task is begun; those under way are
/// waited for, and the result is false. The first exception of a task ends the run in the same way and is
/// thrown to the caller. A `progress` of its own that throws is treated likewise.
bool runTasks(
    const std::vector<std::function<void()>>& tasks, const std::function<bool(double)>& progress = {});
