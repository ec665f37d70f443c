#pragma once

#include "load/core/readformat.h"

#include <QString>
#include <QVector>

/// The first lines of a file as a format cuts them, for the eye.

struct PreviewField {
    enum Kind {
        Time,
        DateTime, // date, or date and time, in a column of its own
        Data,
        Skipped,
    };
    Kind kind = Skipped;
    /// Of the text of the line, in characters.
    int begin = 0;
    int length = 0;
    /// Which data column, from 0.
    int index = 0;
    /// The field should be a number or a time and is none.
    bool bad = false;
};

struct PreviewLine {
    enum Kind {
        Good,
        Bad, // gives no sample
        PassedOver, // blank, comment, head line
    };
    Kind kind = Good;
    /// In the file, from 1.
    qint64 number = 0;
    /// As it stands in the file, cut after 500 characters; UTF-8, else Windows-1251; control characters are
    /// blanks.
    QString text;
    /// Ascending, none overlap.
    QVector<PreviewField> fields;
};

struct Preview {
    QVector<PreviewLine> lines;
    /// The file holds more lines than these.
    bool more = false;
    /// The system's reason when the file cannot be read.
    QString error;
    /// The template or column format itself is at fault: nothing is cut.
    bool formatFault = false;
    int goodLines() const;
    int badLines() const;
};

constexpr int previewLines = 30;

/// What a format template makes of the head of a file: the same lines are bad as in a read of the file.
Preview previewTemplate(const QString& file, const QString& format, int lines = previewLines);
/// The same for a column format.
Preview previewColumns(const QString& file, const ReadFormat& format, int lines = previewLines);
