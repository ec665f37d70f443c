#pragma once

#include "base/busyguard.h"

#include <QPointer>
#include <QProgressBar>

/// What a long command shows while it runs: SLEEP set, the wait cursor, and a progress bar from 0 to 100. All
/// three go back when the scope ends, on whatever way.
class ProgressScope {
public:
    explicit ProgressScope(QProgressBar* bar);
    ~ProgressScope();
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// Shows `percent` and lets the windows handle what is waiting.
    void show(double percent);

private:
    BusyGuard m_busy;
    QPointer<QProgressBar> m_bar;
};
