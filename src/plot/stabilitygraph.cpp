#include "plot/stabilitygraph.h"

#include "plot/avarform.h"
#include "plot/safecurves.h"
#include "stats/statisticname.h"

#include <QCoreApplication>
#include <QIcon>

#include <algorithm>

namespace {

class StabilityGraph {
    Q_DECLARE_TR_FUNCTIONS(StabilityGraph)

public:
    static QString text(const StabilityNotes& notes)
    {
        QString text;
        // Each note begins with the full stop of what stands before it, and may bring its own.
        const auto add = [&text](bool wanted, const QString& note) {
            if (wanted)
                text += text.endsWith(QLatin1Char('.')) ? note.mid(1) : note;
        };
        add(notes.driftRemoved, tr(". Дрейф искл."));
        add(notes.overlapped, tr(". С перекрытиями."));
        add(notes.cross, tr(". Кросс-обработка."));
        add(notes.standsStill, tr(". Не обновляется."));
        return text;
    }

    static QString taus(double least, double greatest)
    {
        return tr(". tau от %1 до %2 с")
            .arg(QString::number(least, 'g', 6), QString::number(greatest, 'g', 6));
    }

    static QString status(const QStringList& leftOut, bool standsStill)
    {
        QStringList told;
        if (!leftOut.isEmpty())
            told << tr("Не показаны (мало точек или нет места): ") + leftOut.join(QStringLiteral(", "));
        if (standsStill)
            told << tr("Новые отсчеты здесь не учитываются: повторите обработку");
        return told.join(QStringLiteral("; "));
    }
};

/// The least and greatest averaging time of the curves that are shown.
QString tauRange(const AvarForm& form)
{
    QwtInterval range;
    for (int i = 0; i < form.curveCount; ++i) {
        if (form.curveVisible(i))
            range = range | dynamic_cast<const SafeCurve&>(*form.curve(i)).xRange(true);
    }
    return range.isValid() ? StabilityGraph::taus(range.minValue(), range.maxValue()) : QString();
}

bool addCurve(AvarForm& form, const StabilityCurve& curve)
{
    const size_t points = std::min(curve.tau.size(), curve.value.size());
    if (points <= stabilityPointsTooFew || form.curveCount >= PlotForm::curveLimit)
        return false;
    const int index = form.curveCount;
    std::vector<double> tau = curve.tau;
    std::vector<double> value = curve.value;
    form.addData(curve.channel, long(points), tau.data(), value.data(), curve.axis, curve.start, curve.stop);
    form.setCurveTitle(index, curve.title);
    return true;
}

} // namespace

QString notesText(const StabilityNotes& notes)
{
    return StabilityGraph::text(notes);
}

QString pictureTitle(const QString& title, const StabilityNotes& notes)
{
    const QString text = title + notesText(notes);
    return text.endsWith(QLatin1Char('.')) ? text.chopped(1) : text;
}

QStringList showStability(
    AvarForm& form, Statistic statistic, const QVector<StabilityCurve>& curves, const StabilityNotes& notes)
{
    form.setStability(statistic);
    form.setTitleSource([statistic, notes] { return statisticName(statistic) + notesText(notes); });
    form.setPictureNote(
        [statistic, notes, &form] { return pictureTitle(statisticName(statistic), notes) + tauRange(form); });
    form.setWindowIcon(
        QIcon(notes.cross ? QStringLiteral(":/bmp/B_VARCross.bmp") : QStringLiteral(":/bmp/B_VAR.bmp")));
    QStringList leftOut;
    for (const StabilityCurve& curve : curves) {
        if (!addCurve(form, curve))
            leftOut << curve.title;
    }
    form.setMarkerMode();
    form.initZoomer();
    if (!leftOut.isEmpty() || notes.standsStill)
        form.setStatusSource(
            [leftOut, still = notes.standsStill] { return StabilityGraph::status(leftOut, still); });
    return leftOut;
}
