#pragma once

#include <QString>

/// Empty when `got` equals `want` within the relative tolerance (relative to the larger of the two), or
/// within the absolute one; else a line that tells both values. A NaN is only near a NaN, an infinity only
/// near itself.
QString nearly(double got, double want, double relative = 1e-12, double absolute = 0.0);

/// QVERIFY for doubles, with both values in the failure line.
#define NEAR(...)                                                                                            \
    do {                                                                                                     \
        const QString nearLine = nearly(__VA_ARGS__);                                                        \
        QVERIFY2(nearLine.isEmpty(), qPrintable(nearLine));                                                  \
    } while (false)
