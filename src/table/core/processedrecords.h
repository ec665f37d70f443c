#pragma once

#include "record/record.h"
#include "table/core/minmax.h"
#include "table/core/recordspectra.h"
#include "table/core/trends.h"

#include <QString>
#include <QVector>

#include <array>
#include <memory>
#include <vector>

/// One result of stability or spectrum: of a record, or of records together.
struct ResultRow {
    QVector<quint16> records; ///< RecID of those that it rests on
    QString channels; ///< of these
    QString name;
    QDateTime start, stop; ///< of the samples
};

/// What one processing of the record table leaves behind. It is one movable value, so that a processing that
/// was stopped or that failed gives back what the one before it had made.
struct ProcessedRecords {
    static constexpr int maxRecords = 32;
    static constexpr int numOfStatistics = 7;

    /// Working copies of the checked rows, `recCount` of them valid.
    std::unique_ptr<Record[]> record = std::make_unique<Record[]>(maxRecords);
    int recCount = 0;
    /// Their frequencies, as the last graph of these wanted them.
    std::unique_ptr<Record[]> record_freq = std::make_unique<Record[]>(maxRecords);

    /// Results of stability, at most 32: one a record, or those of cross processing. The arrays below go by
    /// their number.
    QVector<ResultRow> rows;

    /// The statistic shown: 0 SDEV, 1 ADEV, 2 HDEV, 3 MTIE, 4 TDEV, 5 MDEV, 6 PDEV.
    int varType = 1;

    /// Averaging factors of the last tau scale made; of each result in seconds, and how many.
    std::vector<qint64> tauInt;
    std::array<std::vector<double>, maxRecords> tauSec;
    std::array<int, maxRecords> tauCount{};

    /// Values of the statistic shown, and of every statistic of the group by its number. A statistic may have
    /// fewer values than the scale has points: those of the leading ones.
    std::array<std::vector<double>, maxRecords> avarRes;
    std::array<std::array<std::vector<double>, numOfStatistics>, maxRecords> avarAll;

    /// Spectra, and what each is of.
    QVector<ResultRow> spectrumRows;
    std::vector<PhaseSpectrum> spectra;

    /// Fits of each record, and its reduced curve, seconds from `sampStart`.
    std::vector<Trends> trends;
    std::vector<GraphSeries> processedBuffer;

    /// Earliest start and latest stop of the processed records.
    QDateTime sampStart, sampStop;

    /// What the processing did.
    bool overlapped = false;
    bool driftExcluded = false;
    bool crossProc = false;
    /// After cross processing the number of signals that the records name: 1, 2 or 3.
    int comparison = 0;

    /// Takes out the working copy of a record and every result that rests on it.
    void drop(quint16 recID);
    /// Makes `avarRes` the values of a statistic of the group.
    void showStatistic(int type);
};
