#pragma once

/// Sets the global SLEEP for its own lifetime. A command that finds SLEEP set returns before it makes one:
///     if (SLEEP) return;
///     BusyGuard busy;
class BusyGuard {
public:
    BusyGuard();
    ~BusyGuard();
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    bool m_before;
};
