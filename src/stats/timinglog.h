#pragma once

/// Two debug lines that time one call: "mm:ss:zzz NAME n = N step = M" when made, "mm:ss:zzz NAME end" when
/// it ends. Private to the room.
class TimingLog {
public:
    TimingLog(const char* name, long n, long step);
    ~TimingLog();
    TimingLog(const TimingLog&) = delete;
    TimingLog& operator=(const TimingLog&) = delete;

private:
    const char* m_name;
};
