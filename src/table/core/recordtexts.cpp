#include "table/core/recordtexts.h"

#include "record/record.h"

QString recordName(const Record& record)
{
    return QStringLiteral("%1 - %2 (%3)").arg(record.meas_sig, record.ref_sig, QString::number(record.ch));
}

QString defaultLimit(int dataType)
{
    return dataType == 0 ? QStringLiteral("1") : QStringLiteral("100");
}
