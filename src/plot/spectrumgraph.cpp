#include "plot/spectrumgraph.h"

#include "plot/avarform.h"
#include "plot/stabilitygraph.h"

#include <QCoreApplication>
#include <QIcon>

namespace {

constexpr size_t fewestPoints = 3;

} // namespace

QString spectrumTitle()
{
    return QCoreApplication::translate("SpectrumGraph", "Спектральная плотность мощности");
}

void showSpectra(AvarForm& form, bool ofFrequency, const QVector<SpectrumCurve>& curves, bool driftRemoved)
{
    form.setSpectrum(ofFrequency);
    const StabilityNotes notes{driftRemoved, false, false};
    form.setTitleSource([notes] { return spectrumTitle() + notesText(notes); });
    form.setPictureNote([notes] { return pictureTitle(spectrumTitle(), notes); });
    form.setWindowIcon(QIcon(QStringLiteral(":/bmp/B_SPEC.bmp")));
    for (const SpectrumCurve& curve : curves) {
        if (curve.frequency.size() < fewestPoints || form.curveCount >= PlotForm::curveLimit)
            continue;
        const int index = form.curveCount;
        std::vector<double> x = curve.frequency, y = curve.value;
        form.addData(curve.channel, long(x.size()), x.data(), y.data(), 0, curve.start, curve.stop);
        form.setCurveTitle(index, curve.title);
    }
    form.setMarkerMode();
    form.initZoomer();
}
