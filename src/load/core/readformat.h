#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// How columns of a text file are read. The member names are also the element names in the configuration
/// file.
struct ReadFormat {
    /// " " means any run of white space; any other text is a plain split that keeps empty parts.
    QString separator = QStringLiteral(" ");
    int linesToSkip = 0;
    /// Columns count from 0; -1 for none.
    int columnNum_time = -1;
    QList<int> columnNum_data;
    bool dateFromFileName_flag = false;
    QString dateFromFileName_format = QStringLiteral("yyyyMMdd");
    /// The time column holds a formatted time.
    bool timeFormat_flag = false;
    QString timeFormat_format;
    /// The time column is a number, of this many seconds a unit.
    bool timeUnit_flag = false;
    double timeUnit_format = 1.0;
    /// The user gives the start.
    bool timeStart_flag = false;
    QDateTime timeStart_dateTime;
    /// Between samples, s.
    double interval = 1.0;
    /// 0 phase, 1 temperature, 2 humidity, 3 parameter, 4 frequency, which is summed up to phase.
    short dataType = 0;
    double multiplier = 1.0;
    /// Date and time stand in one column.
    bool dateFromFileDateTime_flag = false;
    int columnNum_datetime = -1;
    QString dateFromFileDateTime_format = QStringLiteral("yyyyMMdd hh:mm:ss");
    /// The date stands in a column of its own.
    bool dateFromFileDate_flag = false;
    int columnNum_date = -1;
    QString dateFromFileDate_format = QStringLiteral("yyyyMMdd hh:mm:ss");
};

struct ReadFromFilesInfo {
    QStringList fileNames;
    ReadFormat format;
};
