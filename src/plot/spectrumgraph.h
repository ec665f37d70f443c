#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

#include <vector>

class AvarForm;

/// The spectrum of one record or of one combination of records.
struct SpectrumCurve {
    quint16 channel = 0;
    QString title;
    std::vector<double> frequency; ///< mHz
    std::vector<double> value; ///< dBc
    QDateTime start; ///< of the record
    QDateTime stop;
};

/// The head of the graphs and tables of spectra, in the language of the interface.
QString spectrumTitle();

/// Makes `form` the graph of spectra of the phase, or of the frequency. Curves of two points or fewer stay
/// out.
void showSpectra(AvarForm& form, bool ofFrequency, const QVector<SpectrumCurve>& curves, bool driftRemoved);
