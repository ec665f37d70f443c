#pragma once

#include <vector>

struct CrossSeries;
struct HatSeries;
struct PhaseSeries;

/// The spectrum of a phase series; the three arrays have one length. Empty for fewer than 128 samples, and
/// for an interval that is not positive and finite. See stats/spectra.h; the carrier is the global freqRef.
struct PhaseSpectrum {
    std::vector<double> frequency; ///< mHz
    std::vector<double> phase; ///< dBc
    std::vector<double> rate; ///< spectrum of the frequency, dBc (mHz^2)
};

/// The spectrum over three decades of resolution, of the samples less the parabola through them.
PhaseSpectrum recordSpectrum(PhaseSeries& series, double interval);

/// The cross spectra of a pair, each series less its own parabola and d the difference of what is left. Pair
/// (x, y) always comes first; for two signals then (x, d), for three (x, d) and (y, d). The first `most`
/// samples serve; up to 20480 of them go into one stage, more into three. Of too short a series each spectrum
/// is empty. The series is only read.
std::vector<PhaseSpectrum> crossSpectra(CrossSeries& series, long most = 10000000);

/// The same of each clock of the hat, from the two records that contain it.
std::vector<PhaseSpectrum> hatSpectra(HatSeries& series, long most = 10000000);
