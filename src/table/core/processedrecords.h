#pragma once

#include "record/record.h"
#include "table/core/trends.h"

#include <array>
#include <memory>
#include <vector>

/// What one processing of the record table leaves behind. It is one movable value, so that a processing that
/// was stopped or that failed gives back what the one before it had made.
struct ProcessedRecords {
    static constexpr int maxRecords = 32;
    static constexpr int numOfStatistics = 7;

    /// Working copies of the checked rows, `recCount` of them valid.
    std::unique_ptr<Record[]> record = std::make_unique<Record[]>(maxRecords);
    int recCount = 0;

    /// The statistic shown: 0 SDEV, 1 ADEV, 2 HDEV, 3 MTIE, 4 TDEV, 5 MDEV, 6 PDEV.
    int varType = 1;

    /// Averaging factors of the last tau scale made; of each record in seconds, and how many.
    std::vector<qint64> tauInt;
    std::array<std::vector<double>, maxRecords> tauSec;
    std::array<int, maxRecords> tauCount{};

    /// Values of the statistic shown, and of every statistic of the group by its number. A statistic may have
    /// fewer values than the scale has points: those of the leading ones.
    std::array<std::vector<double>, maxRecords> avarRes;
    std::array<std::array<std::vector<double>, numOfStatistics>, maxRecords> avarAll;

    /// Fits of each record.
    std::vector<Trends> trends;

    /// Earliest start and latest stop of the processed records.
    QDateTime sampStart, sampStop;

    /// What the processing did.
    bool overlapped = false;
    bool driftExcluded = false;
};
