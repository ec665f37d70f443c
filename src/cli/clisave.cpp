#include "cli/clisave.h"

#include "cli/clicompute.h"
#include "load/core/formatfilereader.h"
#include "store/core/mapstruct.h"
#include "store/core/recordingnames.h"

#include <QDir>
#include <QSaveFile>

namespace {

/// All records of a run under the same number, or higher ones: the files that are there stay as they are.
void writeRecordings(CliWork& work, const CliOptions& options, QStringList& notes)
{
    const QString& name = options.saveRecording;
    QDir directory(name);
    if (!directory.mkpath(QStringLiteral(".")))
        throw DataFault(name + QStringLiteral(": the folder cannot be made"));
    int k = 0;
    int number = 0;
    for (const std::unique_ptr<Record>& record : work.asRead) {
        ++number;
        if (record->ch < 1)
            record->ch = number; // text files tell none
        if (!recordingKeepsInterval(*record))
            notes << name
                    + QStringLiteral(": an interval of %1 s is not kept; recordings hold whole seconds")
                          .arg(record->Kdec, 0, 'g', 10);
        const int before = k;
        while (recordingExists(*record, directory, k)) {
            if (++k > mostNameNumber)
                throw DataFault(name + QStringLiteral(": all names of files are taken"));
        }
        if (k > before)
            notes << name
                    + QStringLiteral(": files of channel %1 are there already; written with the suffix (%2)")
                          .arg(record->ch)
                          .arg(k);
        mapStruct map(0, 0);
        if (map.SaveToInfDat(record.get(), &directory, 0, quint8(k)) != 0)
            throw DataFault(name + QStringLiteral(": ") + map.error());
    }
}

void writeAscii(Record& record, const QString& name)
{
    QSaveFile file(name);
    if (FormatFileReader(QStringLiteral("[t] [x]")).SaveToASCII(&record, &file, nullptr, true) != 0)
        throw DataFault(QStringLiteral("%1: cannot be written: %2").arg(name, file.errorString()));
}

} // namespace

void writeSaves(CliWork& work, const CliOptions& options, QStringList& notes)
{
    if (!options.saveRecording.isEmpty())
        writeRecordings(work, options, notes);
    if (work.processed)
        writeAscii(*work.processed, options.saveAscii);
}
