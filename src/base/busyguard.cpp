#include "base/busyguard.h"

#include "base/globals.h"

BusyGuard::BusyGuard()
    : m_before(SLEEP)
{
    SLEEP = true;
}

BusyGuard::~BusyGuard()
{
    SLEEP = m_before;
}
