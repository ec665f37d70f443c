#include "plot/core/exporttable.h"
#include "plot/core/tiff.h"
#include "plot/core/valuetable.h"
#include "support/near.h"

#include <QTest>
#include <QtEndian>

#include <cmath>
#include <limits>

namespace {

ExportColumn column(const QString& title, const QVector<double>& x, const QVector<double>& y)
{
    return {title, x, y, {}, {}};
}

QString blanks(int count)
{
    return QString(count, ' ');
}

} // namespace

class TestExportTable : public QObject {
    Q_OBJECT
private slots:
    void heads_data();
    void heads();
    void rows_data();
    void rows();
    void shortColumnIsPadded();
    void longTitleWidensItsColumn();
    void bars();
    void spectrumKeepers_data();
    void spectrumKeepers();
    void spectrum();
    void stabilityTableRows_data();
    void stabilityTableRows();
    void stabilityTableText();
    void means();
    void tiff();
};

void TestExportTable::heads_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("english");
    QTest::addColumn<QString>("left");
    const auto row = [](const char* name, ExportKind kind, bool english, const QString& left) {
        QTest::newRow(name) << int(kind) << english << left;
    };
    row("tau, en", ExportKind::Tau, true, "             tau, s|");
    row("tau, ru", ExportKind::Tau, false, "             tau, c|");
    row("hour, en", ExportKind::Hour, true, "      Hour|            Date, time|    MJD|");
    row("hour, ru", ExportKind::Hour, false, "      Часы|           Дата, время|    MJD|");
    row("day, en", ExportKind::Day, true, "       Day|        Date|    MJD|");
    row("day, ru", ExportKind::Day, false, "     Сутки|        Дата|    MJD|");
    row("spectrum", ExportKind::Spectrum, false, "            Название");
}

void TestExportTable::heads()
{
    QFETCH(int, kind);
    QFETCH(bool, english);
    QFETCH(QString, left);
    ExportRequest request;
    request.kind = static_cast<ExportKind>(kind);
    request.english = english;
    request.columns << column("rec", {1.0}, {2.0});
    const int width = request.kind == ExportKind::Spectrum ? 30 : 20;
    QCOMPARE(exportTable(request).first(), left + blanks(width - 3) + "rec|");
}

void TestExportTable::rows_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("x0");
    QTest::addColumn<double>("x1");
    QTest::addColumn<QString>("left");
    QTest::newRow("tau") << int(ExportKind::Tau) << 1.0 << 1200.0 << blanks(9) + "      1200|";
    QTest::newRow("tau below a second loses its digits")
        << int(ExportKind::Tau) << 0.1 << 0.2 << blanks(9) + "         0|";
    // The start is 10:47:13; the hours count from 10:00.
    QTest::newRow("hour") << int(ExportKind::Hour) << 1.0 << 15.0
                          << "        14|   02.02.2025 01:00:00|  60708|";
    QTest::newRow("a third of an hour is 20 minutes")
        << int(ExportKind::Hour) << 0.0 << 1.0 / 3.0 << "         0|   01.02.2025 10:20:00|  60707|";
    QTest::newRow("day") << int(ExportKind::Day) << 60700.0 << 60707.0 << "         7|  01.02.2025|  60707|";
}

void TestExportTable::rows()
{
    QFETCH(int, kind);
    QFETCH(double, x0);
    QFETCH(double, x1);
    QFETCH(QString, left);
    ExportRequest request;
    request.kind = static_cast<ExportKind>(kind);
    request.startTime = QDateTime(QDate(2025, 2, 1), QTime(10, 47, 13));
    request.columns << column("rec", {x0, x1}, {0.0, 1.23456789012e-12});
    const QStringList lines = exportTable(request);
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[2], left + blanks(20 - 13) + "1.2345679e-12|");
}

void TestExportTable::shortColumnIsPadded()
{
    ExportRequest request;
    request.columns << column("a", {1.0}, {5.0}) << column("b", {1.0, 2.0, 3.0}, {6.0, 7.0, 8.0});
    const QStringList lines = exportTable(request);
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[1], blanks(18) + "1|" + blanks(19) + "5|" + blanks(19) + "6|");
    QCOMPARE(lines[3], blanks(18) + "3|" + blanks(16) + "---||" + blanks(19) + "8|");
}

void TestExportTable::longTitleWidensItsColumn()
{
    const QString title(30, 'T');
    ExportRequest request;
    request.columns << column(title, {1.0}, {5.0});
    const QStringList lines = exportTable(request);
    QCOMPARE(lines[0], blanks(13) + "tau, c|" + "   " + title + "|");
    QCOMPARE(lines[1], blanks(18) + "1|" + blanks(32) + "5|");
}

void TestExportTable::bars()
{
    ExportRequest request;
    request.withBars = true;
    ExportColumn wide = column("rec", {1.0, 2.0}, {5.0, 6.0});
    wide.low = {4.5, 0.0};
    wide.high = {5.5, 12.0};
    ExportColumn brief = column("b", {1.0}, {1.0});
    brief.low = {0.5};
    brief.high = {1.5};
    request.columns << wide << brief;
    const QStringList lines = exportTable(request);
    const QString minMax = "                 Min                 Max|";
    QCOMPARE(lines[0], blanks(13) + "tau, c|" + blanks(17) + "rec" + minMax + blanks(19) + "b" + minMax);
    QCOMPARE(lines[1].mid(20, 61), blanks(19) + "5" + blanks(17) + "4.5" + blanks(17) + "5.5|");
    QCOMPARE(lines[2].mid(81), blanks(56) + "---||");
}

void TestExportTable::spectrumKeepers_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<QVector<qint64>>("keepers");
    using List = QVector<qint64>;
    QTest::newRow("none") << 0 << List{1};
    QTest::newRow("two points") << 2 << List{1};
    // L = 0: the counter goes 1, 4 against a limit of 3.
    QTest::newRow("three points") << 3 << List{1, 2, 5};
    // L = 1: limit 9, three triples.
    QTest::newRow("thirty points") << 30 << List{1, 2, 5, 10, 20, 50, 100, 200, 500};
}

void TestExportTable::spectrumKeepers()
{
    QFETCH(int, n);
    QTEST(::spectrumKeepers(n), "keepers");
}

void TestExportTable::spectrum()
{
    ExportRequest request;
    request.kind = ExportKind::Spectrum;
    QVector<double> x;
    QVector<double> y;
    for (int i = 0; i < 60; ++i) {
        x << 1.0 + 0.5 * i;
        y << -100.0 - i;
    }
    x[59] = std::numeric_limits<double>::quiet_NaN();
    request.columns << column(QString(40, 'T'), x, y) << column("b", {1.0, 2.0, 3.0}, {-1.0, -2.0, -3.0});
    const QStringList lines = exportTable(request);
    QCOMPARE(lines[0], blanks(12) + "Название" + QString(30, 'T') + "|" + blanks(29) + "b|");
    // Two points share each whole frequency.
    QCOMPARE(lines[1], blanks(19) + "1" + blanks(24) + "-100.5|" + blanks(28) + "-1|");
    QCOMPARE(lines[2].left(20), blanks(19) + "2");
    QCOMPARE(lines[3], blanks(19) + "5" + blanks(24) + "-108.5|" + blanks(27) + "---|");
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines[5].left(20), blanks(18) + "20");
}

void TestExportTable::stabilityTableRows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("indices");
    QTest::newRow("none") << 0 << QVector<int>{};
    QTest::newRow("5 points") << 5 << QVector<int>{0, 3};
    QTest::newRow("20 points") << 20 << QVector<int>{0, 3, 6, 9, 11, 13, 16, 17};
    QTest::newRow("30 points") << 30 << QVector<int>{0, 3, 6, 9, 11, 13, 16, 17, 20};
}

void TestExportTable::stabilityTableRows()
{
    QFETCH(int, count);
    QFETCH(QVector<int>, indices);
    QVector<double> tau;
    for (int i = 0; i < count; ++i)
        tau << 1000 + i;
    const QString html = stabilityTable(tau.data(), tau.data(), count, "ADEV", false, true);
    QCOMPARE(html.count("<TR"), indices.size() + 1);
    for (const int index : indices)
        QVERIFY2(html.contains(QString(">%1</TD>").arg(1000 + index)), qPrintable(html));
}

void TestExportTable::stabilityTableText()
{
    const double tau[] = {10.0};
    const double value[] = {2.0e-12};
    const QString row =
        "<TR align = center><TD align = center>10</TD><TD align = center><FONT COLOR=Black>%1</FONT>"
        "</TD></TR></TABLE></Qt>";
    const QString plain = stabilityTable(tau, value, 1, "СКДО", false, false);
    QVERIFY2(
        plain.startsWith("<Qt>") && plain.contains("<TABLE width=150") && plain.endsWith(row.arg("2.00E-12")),
        qPrintable(plain));
    QVERIFY(plain.contains(">tau, c</TD>") && plain.contains(">СКДО</TD></TR>"));
    const QString divided = stabilityTable(tau, value, 1, "ADEV", true, true);
    QVERIFY2(
        divided.contains(">tau, s</TD>") && divided.contains(">ADEV/sqrt(2)</TD></TR>"), qPrintable(divided));
    QVERIFY2(divided.endsWith(row.arg("1.41E-12")), qPrintable(divided));
}

void TestExportTable::means()
{
    const QVector<double> x = {1.0, 2.0, 3.0, 4.0};
    const QVector<double> y = {10.0, 20.0, 40.0, 80.0};
    NEAR(meanBetween(x, y, 2.0, 3.0), 30.0);
    NEAR(meanBetween(x, y, 3.0, 2.0), 30.0);
    NEAR(meanBetween(x, y, 4.5, 9.0), 0.0);
}

void TestExportTable::tiff()
{
    const QByteArray rgb("\xff\x00\x00\x00\xff\x00\x00\x00\xff\x01\x02\x03\x04\x05\x06\x07\x08\x09", 18);
    const QByteArray file = encodeTiff(rgb, 3, 2, 300);
    const auto* bytes = reinterpret_cast<const uchar*>(file.constData());
    QCOMPARE(file.left(4), QByteArray("II*\0", 4));
    const quint32 directory = qFromLittleEndian<quint32>(bytes + 4);
    const quint16 count = qFromLittleEndian<quint16>(bytes + directory);
    QMap<quint16, quint32> tags;
    for (quint16 i = 0; i < count; ++i) {
        const uchar* entry = bytes + directory + 2 + 12 * i;
        const quint16 type = qFromLittleEndian<quint16>(entry + 2);
        tags[qFromLittleEndian<quint16>(entry)] = type == 3 && qFromLittleEndian<quint32>(entry + 4) == 1
            ? qFromLittleEndian<quint16>(entry + 8)
            : qFromLittleEndian<quint32>(entry + 8);
    }
    QCOMPARE(tags[256], 3U);
    QCOMPARE(tags[257], 2U);
    QCOMPARE(qFromLittleEndian<quint16>(bytes + tags[258] + 4), quint16(8));
    QCOMPARE(qFromLittleEndian<quint32>(bytes + tags[282]), 300U);
    QCOMPARE(tags[273] + tags[279], quint32(file.size()));
    QByteArray packed(4, '\0');
    qToBigEndian(quint32(rgb.size()), packed.data());
    QCOMPARE(qUncompress(packed + file.mid(int(tags[273]))), rgb);
    QVERIFY(encodeTiff(rgb, 3, 3, 300).isEmpty());
}

QTEST_GUILESS_MAIN(TestExportTable)
#include "tst_exporttable.moc"
