#pragma once

#include <chrono>
#include <cstring>
#include <fstream>
#include <string>

/// What `work` takes, in seconds.
template <typename Work> double seconds(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// A memory figure of this process in bytes, as the system tells it in kilobytes.
inline double memory(const char* key)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, std::strlen(key), key) == 0)
            return std::stod(line.substr(std::strlen(key) + 1)) * 1024.0;
    }
    return 0.0;
}
