#pragma once

#include "load/core/readformat.h"

#include <QVariant>

/// A format in which no member has its default.
inline ReadFormat fullFormat()
{
    ReadFormat format;
    format.separator = QStringLiteral("  ");
    format.linesToSkip = 3;
    format.columnNum_time = 2;
    format.columnNum_data = {4, 7};
    format.dateFromFileName_flag = true;
    format.dateFromFileName_format = QStringLiteral("yyMMdd");
    format.timeFormat_flag = true;
    format.timeFormat_format = QStringLiteral("hh:mm");
    format.timeUnit_flag = true;
    format.timeUnit_format = 0.001;
    format.timeStart_flag = true;
    format.timeStart_dateTime = QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58));
    format.interval = 2.5;
    format.dataType = 4;
    format.multiplier = -1.5e-9;
    format.dateFromFileDateTime_flag = true;
    format.columnNum_datetime = 1;
    format.dateFromFileDateTime_format = QStringLiteral("dd.MM.yyyy h:m:s");
    format.dateFromFileDate_flag = true;
    format.columnNum_date = 5;
    format.dateFromFileDate_format = QStringLiteral("dd MM");
    return format;
}

/// All members, in the order of the structure.
inline QVariantList membersOf(const ReadFormat& f)
{
    QVariantList columns;
    for (const int column : f.columnNum_data)
        columns << column;
    return {f.separator, f.linesToSkip, f.columnNum_time, columns, f.dateFromFileName_flag,
        f.dateFromFileName_format, f.timeFormat_flag, f.timeFormat_format, f.timeUnit_flag, f.timeUnit_format,
        f.timeStart_flag, f.timeStart_dateTime, f.interval, f.dataType, f.multiplier,
        f.dateFromFileDateTime_flag, f.columnNum_datetime, f.dateFromFileDateTime_format,
        f.dateFromFileDate_flag, f.columnNum_date, f.dateFromFileDate_format};
}
