#pragma once

#include <cstring>

/// Two doubles in one register, which every 64-bit machine has. Private to the room.
namespace pairs {

using Pair = double __attribute__((vector_size(16)));

inline Pair load(const double* p)
{
    Pair both;
    std::memcpy(&both, p, sizeof both);
    return both;
}

inline void store(double* p, Pair both)
{
    std::memcpy(p, &both, sizeof both);
}

inline Pair both(double value)
{
    return Pair{value, value};
}

inline double folded(Pair value)
{
    return value[0] + value[1];
}

}
