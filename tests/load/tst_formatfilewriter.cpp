#include "load/core/formatfilereader.h"

#include "record/record.h"

#include "support/scopedhome.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

class TestFormatFileWriter : public QObject {
    Q_OBJECT

private slots:
    void writing();
    void writeThenRead();
};

void TestFormatFileWriter::writing()
{
    const ScopedHome home;
    Record rec;
    rec.start = QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6));
    rec.stop = QDateTime(QDate(2024, 2, 4), QTime(0, 0));
    rec.Kdec = 0.1;
    rec.ch = 3;
    rec.ref_sig = QStringLiteral("опора");
    rec.meas_sig = QStringLiteral("m");
    for (const int part : {1, 2}) {
        rec.t.AddNewPart(part);
        rec.x.AddNewPart(part);
        for (int i = 0; i < part; ++i) {
            const double t = part + i * 0.5, x = i ? -std::numeric_limits<double>::quiet_NaN() : -1.5e-9;
            rec.t.append__(&t, 1);
            rec.x.append__(&x, 1);
        }
    }
    rec.n_cnt = 3;
    FormatFileReader writer(QStringLiteral("[t] [x]"));
    const auto written = [&](QStringList* comment, bool header) {
        QFile file(home.file(QStringLiteral("out.txt")));
        if (writer.SaveToASCII(&rec, &file, comment, header) != 0 || !file.open(QIODevice::ReadOnly))
            return QByteArray("failed");
        return file.readAll();
    };
    const QByteArray samples =
        "1.0000000000 -1.5000000000000000e-09\r\n2.0000000000 -1.5000000000000000e-09\r\n"
        "2.5000000000 nan\r\n";
    QStringList comment;
    QCOMPARE(written(&comment, false), samples);
    QCOMPARE(written(&comment, true),
        "# 03.02.24 04:05:06 - 04.02.24 00:00:00\r\n# Kdec=0.1 Channel№ = 3\r\n# опора - m\r\n"
        "# total number of counts 3\r\n"
            + samples);
    comment = QStringList({"# mine", "as it stands"});
    QCOMPARE(written(&comment, true), "# mine\r\nas it stands\r\n" + samples);
    rec.n_cnt = 2;
    QVERIFY(written(nullptr, false).count('\n') == 2);
    QFile nowhere(home.file(QStringLiteral("no/such/dir")));
    QCOMPARE(writer.SaveToASCII(&rec, &nowhere, nullptr, true), 1);
    QFile full(QStringLiteral("/dev/full"));
    QCOMPARE(writer.SaveToASCII(&rec, &full, nullptr, true), 1);
    Record empty;
    QCOMPARE(FormatFileReader::asciiText(&empty, nullptr, false), std::string());
}

void TestFormatFileWriter::writeThenRead()
{
    const ScopedHome home;
    Record rec;
    rec.start = rec.stop = QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6));
    std::mt19937 random(3);
    for (int i = 0; i < 5000; ++i) {
        rec.t.append(i * 0.125);
        rec.x.append(std::ldexp(double(random()) - 2147483648.0, -60) / 3.0);
    }
    rec.n_cnt = 5000;
    QFile file(home.file(QStringLiteral("out.txt")));
    FormatFileReader reader(QStringLiteral("[t] [x]"));
    QCOMPARE(reader.SaveToASCII(&rec, &file, nullptr, true), 0);
    double** data = nullptr;
    int lines = 0;
    QVERIFY(reader.ParseTheFile(file.fileName(), &data, lines).isEmpty());
    QCOMPARE(lines, 5000);
    for (int i = 0; i < 5000; ++i)
        QVERIFY(data[0][i] == rec.t[i] && data[1][i] == rec.x[i]);
}

QTEST_GUILESS_MAIN(TestFormatFileWriter)
#include "tst_formatfilewriter.moc"
