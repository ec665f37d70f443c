#pragma once

#include "stats/statistic.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

class AvarForm;

/// The values of a statistic over tau, for one record or one combination of records.
struct StabilityCurve {
    quint16 channel = 0;
    QString title;
    std::vector<double> tau; ///< s
    std::vector<double> value; ///< may be shorter than tau: then of the leading ones
    QDateTime start; ///< of the record
    QDateTime stop;
    unsigned short axis = 0; ///< Y axis
};

/// What was done to the records first, and what is not done; told in the titles of windows.
struct StabilityNotes {
    bool driftRemoved = false;
    bool overlapped = false;
    bool cross = false;
    bool standsStill = false; ///< records go on being measured, but these values do not follow
};

/// The notes in words, to follow the name of a statistic as sentences of their own. Empty without any.
QString notesText(const StabilityNotes& notes);

/// A title with the notes, as it stands in a picture: without a full stop at its end.
QString pictureTitle(const QString& title, const StabilityNotes& notes);

/// Curves of this many points or fewer are not drawn.
constexpr size_t stabilityPointsTooFew = 10;

/// Makes `form` the graph of a statistic: logarithmic axes, titles, icon and the curves with their error
/// bars. With exactly one curve the plot carries the name and the dates of its record, and the table of
/// values. Pictures and prints say below it what the graph shows. Curves that are too short, or that the
/// window has no room for, stay out; the status line says so, and their titles are returned. It also says
/// when the values do not follow a measurement that goes on.
QStringList showStability(
    AvarForm& form, Statistic statistic, const QVector<StabilityCurve>& curves, const StabilityNotes& notes);
