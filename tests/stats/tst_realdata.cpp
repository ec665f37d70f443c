#include "stats/deviations.h"
#include "stats/tdevmtie.h"
#include "support/near.h"

#include <QFile>
#include <QTest>

#include <vector>

// Measured series against the tables a widely used stability program printed for them, five digits.

namespace {

using Samples = std::vector<double>;
using Kernel = double (*)(long n, long m, Samples& x, Samples& t);

Samples column(const QString& path, int index)
{
    QFile file(path);
    Samples values;
    if (!file.open(QIODevice::ReadOnly))
        return values;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QList<QByteArray> cells = line.simplified().split(' ');
        bool isNumber = false;
        const double value = cells.size() > index ? cells[index].toDouble(&isNumber) : 0.0;
        if (isNumber && !line.trimmed().startsWith('#'))
            values.push_back(value);
    }
    return values;
}

QString data(const QString& name)
{
    return qEnvironmentVariable("KRONALYS_SOURCE") + "/../shared/data/" + name;
}

double adev(long n, long m, Samples& x, Samples& t)
{
    return alan_scdo(n, m, x.data(), t.data(), 1.0);
}
double overlapAdev(long n, long m, Samples& x, Samples& t)
{
    return alan_scdo_overlap(n, m, x.data(), t.data(), 1.0);
}
double overlapAdevPlain(long n, long m, Samples& x, Samples&)
{
    return alan_scdo_overlap(n, m, x.data(), 1.0);
}
double mdev(long n, long m, Samples& x, Samples&)
{
    return mod_alan_scdo(n, m, x.data());
}
double tdev(long n, long m, Samples& x, Samples& t)
{
    return TDEV(n, m, x.data(), t.data(), 1.0);
}
double hdev(long n, long m, Samples& x, Samples& t)
{
    return hadamard_scdo(n, m, x.data(), t.data(), 1.0);
}
double overlapHdev(long n, long m, Samples& x, Samples& t)
{
    return hadamard_scdo_overlap(n, m, x.data(), t.data(), 1.0);
}
double mtie(long n, long m, Samples& x, Samples& t)
{
    return MTIE(n, m, x.data(), t.data(), 1.0);
}

}

Q_DECLARE_METATYPE(Kernel)

class TestRealData : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }

    void tables_data()
    {
        QTest::addColumn<QString>("phase");
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("valueColumn");
        QTest::addColumn<Kernel>("kernel");
        struct Form {
            const char *name, *table;
            Kernel kernel;
        };
        const Form forms[] = {{"ADEV", "adev", adev}, {"overlapping ADEV", "oadev", overlapAdev},
            {"overlapping ADEV without times", "oadev", overlapAdevPlain}, {"MDEV", "mdev", mdev},
            {"TDEV", "tdev", tdev}, {"HDEV", "hdev", hdev}, {"overlapping HDEV", "ohdev", overlapHdev}};
        struct Source {
            const char *name, *phase, *table;
        };
        const Source sources[] = {
            {"PHASE.DAT", "clock/allantools/PHASE.DAT", "published/phasedat/phase_dat_%1.txt"},
            {"OCXO", "derived/ocxo/ocxo_phase_s.txt", "published/ocxo/stable32_%1_alltau.txt"},
            {"counter", "clock/allantools/tic_phase.txt", "published/tic53230a/tic_%1.txt"}};
        for (const Source& source : sources) {
            for (const Form& form : forms)
                QTest::addRow("%s %s", source.name, form.name)
                    << data(source.phase) << data(QString(source.table).arg(form.table)) << 5 << form.kernel;
        }
        QTest::newRow("PHASE.DAT MTIE")
            << data(sources[0].phase) << data(QString(sources[0].table).arg("mtie")) << 3 << Kernel(mtie);
    }
    void tables()
    {
        QFETCH(QString, phase);
        QFETCH(QString, table);
        QFETCH(int, valueColumn);
        QFETCH(Kernel, kernel);
        if (!QFile::exists(phase) || !QFile::exists(table))
            QSKIP("the measured series are not here");
        Samples x = column(phase, 0), t;
        for (std::size_t i = 0; i < x.size(); ++i)
            t.push_back(static_cast<double>(i));
        const Samples factors = column(table, 0), values = column(table, valueColumn);
        QVERIFY(!factors.empty() && factors.size() == values.size());
        for (std::size_t k = 0; k < factors.size(); ++k) {
            const double got = kernel(static_cast<long>(x.size()), static_cast<long>(factors[k]), x, t);
            const QString line = nearly(got, values[k], 5.1e-5);
            QVERIFY2(line.isEmpty(), qPrintable(QString("m %1: ").arg(factors[k]) + line));
        }
    }
};

QTEST_APPLESS_MAIN(TestRealData)
#include "tst_realdata.moc"
