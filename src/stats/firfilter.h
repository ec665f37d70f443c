#pragma once

#include <QString>

#include <array>

/// The low-pass filter of the spectra: "filter.txt" in the configuration directory, numbers with a decimal
/// point, separated by commas or line ends. Blanks round a number and empty places are passed over.
///
/// The default that comes with the program is a Dolph-Chebyshev window of 65 taps with unit gain at zero
/// frequency and a stop band of -70 dB, equal in all its ripples, from 0.046 of the sampling rate on: made
/// for a decimation by 10, whose first alias band begins at 0.05 (see resources/filter/makefilter.cpp).
constexpr int firTaps = 65;
using FirFilter = std::array<double, firTaps>;

/// The coefficients in the order of the file. What is wrong with a file goes to the debug log, and the filter
/// is still defined: a missing or unreadable file gives 65 zeros; a place that holds no finite number counts
/// as 0; with fewer than 65 numbers the rest is 0; numbers after the 65th are passed over, and so is text
/// after the first 65536 bytes.
FirFilter readFirFilter(const QString& fileName);

/// Puts the default "filter.txt" into the directory, making the directory if need be, unless something of
/// that name stands there: a user's file is never touched. The file appears under its name only when it is
/// complete. True when such a file is there in the end; a failure goes to the debug log.
bool installDefaultFilter(const QString& configDir);
