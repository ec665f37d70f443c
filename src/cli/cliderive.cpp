#include "cli/cliderive.h"

#include "table/core/difference.h"
#include "table/core/merge.h"

namespace {

QString refusal(DifferenceStatus status)
{
    switch (status) {
    case DifferenceStatus::OtherIntervals:
        return QStringLiteral("the records have different intervals");
    case DifferenceStatus::NoCommonTime:
        return QStringLiteral("the records have no time in common");
    case DifferenceStatus::NoPairs:
        return QStringLiteral("no samples of the records stand at the same time");
    case DifferenceStatus::Ok:
        break;
    }
    return {};
}

QString refusal(MergeStatus status)
{
    switch (status) {
    case MergeStatus::OtherTypes:
        return QStringLiteral("the records are of different kinds of data");
    case MergeStatus::OtherIntervals:
        return QStringLiteral("the records have different intervals");
    case MergeStatus::NoSamples:
        return QStringLiteral("a record has no samples");
    case MergeStatus::Overlap:
        return QStringLiteral("the records must not overlap in time");
    case MergeStatus::Ok:
        break;
    }
    return {};
}

void subtract(LoadedRecord& first, LoadedRecord& second, LoadedRecord& out, QStringList& notes)
{
    const DifferenceResult done = differenceOf(first.record, second.record, out.record);
    if (done.status != DifferenceStatus::Ok)
        throw DataFault(QStringLiteral("--diff: ") + refusal(done.status));
    if (done.countsDiffer)
        notes << countsDifferNote();
    if (done.otherSignals)
        notes << QStringLiteral("the records have different reference and measured signals; perhaps the "
                                "signals of one of them should change places");
    out.result.title = second.result.title + QStringLiteral(" - ") + first.result.title;
}

void join(LoadedRecord& first, LoadedRecord& second, LoadedRecord& out, const CliOptions& options,
    QStringList& notes)
{
    if (!sameSignals(first.record, second.record))
        notes << QStringLiteral("the records are of different signals; they are joined nevertheless");
    bool jump = false;
    const auto askShift = [&] {
        jump = true;
        return options.shiftPhase;
    };
    const MergeResult done =
        mergeRecords(first.record, second.record, options.mergeMode, askShift, out.record);
    if (done.status != MergeStatus::Ok)
        throw DataFault(QStringLiteral("--merge: ") + refusal(done.status));
    if (jump && !options.shiftPhase)
        notes << QStringLiteral("a jump in phase between the records stays; --shift-phase closes it");
    else if (options.mergeMode == MergeMode::KeepGap && !jump)
        notes << QStringLiteral("no jump in phase between the records; their values stay as they are");
    else
        notes << QStringLiteral("the second record begins %1 s higher than it was read")
                     .arg(done.valueShift, 0, 'g', 10);
    if (done.leftOut > 0)
        notes << QStringLiteral("%1 samples whose time does not rise are left out").arg(done.leftOut);
    const bool turned = second.record.start < first.record.start;
    out.result.title = (turned ? second : first).result.title + QStringLiteral(" + ")
        + (turned ? first : second).result.title;
}

} // namespace

std::unique_ptr<LoadedRecord> derivedRecord(
    std::vector<std::unique_ptr<LoadedRecord>> records, const CliOptions& options, QStringList& notes)
{
    auto out = std::make_unique<LoadedRecord>();
    LoadedRecord& first = *records.at(0);
    LoadedRecord& second = *records.at(1);
    if (options.pairing == Pairing::Difference)
        subtract(first, second, *out, notes);
    else
        join(first, second, *out, options, notes);
    CliResult& result = out->result;
    result.sources = first.result.sources + second.result.sources;
    result.start = out->record.start;
    result.stop = out->record.stop;
    result.interval = out->record.Kdec;
    result.samples = out->record.n_cnt;
    return out;
}

QString countsDifferNote()
{
    return QStringLiteral(
        "the numbers of samples of the records in their common time differ by more than 10");
}
