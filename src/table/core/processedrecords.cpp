#include "table/core/processedrecords.h"

#include <utility>

namespace {

/// Moves an entry to a place in front of it, if it is not there already.
template <class Entry> void moveTo(Entry& place, Entry& entry)
{
    if (&place != &entry)
        place = std::move(entry);
}

} // namespace

void ProcessedRecords::drop(quint16 recID)
{
    int kept = 0;
    for (int i = 0; i < rows.size(); ++i) {
        if (rows.at(i).records.contains(recID))
            continue;
        const size_t from = size_t(i), to = size_t(kept++);
        moveTo(rows[int(to)], rows[i]);
        moveTo(tauSec[to], tauSec[from]);
        moveTo(tauCount[to], tauCount[from]);
        moveTo(avarRes[to], avarRes[from]);
        moveTo(avarAll[to], avarAll[from]);
    }
    rows.resize(kept);

    kept = 0;
    for (int i = 0; i < spectrumRows.size(); ++i) {
        if (spectrumRows.at(i).records.contains(recID))
            continue;
        moveTo(spectrumRows[kept], spectrumRows[i]);
        moveTo(spectra[size_t(kept)], spectra[size_t(i)]);
        ++kept;
    }
    spectrumRows.resize(kept);
    spectra.resize(size_t(kept));

    kept = 0;
    for (int i = 0; i < recCount; ++i) {
        const size_t from = size_t(i), to = size_t(kept);
        if (record[from].RecID == recID)
            continue;
        moveRecord(&record[from], &record[to]);
        moveRecord(&record_freq[from], &record_freq[to]);
        moveTo(trends[to], trends[from]);
        moveTo(processedBuffer[to], processedBuffer[from]);
        ++kept;
    }
    for (int i = kept; i < recCount; ++i) {
        deleteRecord(&record[size_t(i)]);
        deleteRecord(&record_freq[size_t(i)]);
    }
    recCount = kept;
    trends.resize(size_t(kept));
    processedBuffer.resize(size_t(kept));
}

void ProcessedRecords::showStatistic(int type)
{
    varType = type;
    for (int row = 0; row < rows.size(); ++row)
        avarRes[size_t(row)] = avarAll[size_t(row)][size_t(type)];
}
