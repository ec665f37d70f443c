#include "record/calendar.h"

#include <QDate>
#include <QTest>

#include <limits>

namespace {

constexpr int julianDayOfZero = 2400001; // of the day that begins at modified Julian day 0

} // namespace

class TestCalendar : public QObject {
    Q_OBJECT
private slots:
    void agreesWithQt();
    void farValues();
};

void TestCalendar::agreesWithQt()
{
    const long first = DateToMjd(1583, 1, 1);
    const long last = DateToMjd(2600, 12, 31);
    for (long mjd = first; mjd <= last; ++mjd) {
        const QDate date = QDate::fromJulianDay(mjd + julianDayOfZero);
        int year = 0;
        int month = 0;
        int day = 0;
        MjdToDate(mjd, &year, &month, &day);
        if (date != QDate(year, month, day) || DateToMjd(year, month, day) != mjd)
            QFAIL(qPrintable(QStringLiteral("%1 gives %2-%3-%4").arg(mjd).arg(year).arg(month).arg(day)));
    }
}

void TestCalendar::farValues()
{
    for (const long mjd : {std::numeric_limits<long>::max(), std::numeric_limits<long>::min()}) {
        int year = 1;
        int month = 1;
        int day = 1;
        MjdToDate(mjd, &year, &month, &day);
        QVERIFY(year == 0 && month == 0 && day == 0);
        QCOMPARE(DateToMjd(mjd, 1, 1), 0L);
        QCOMPARE(DateToMjd(2000, 1, mjd), 0L);
    }
    int year = 0;
    MjdToDate(57345, &year, nullptr, nullptr);
    QCOMPARE(year, 2015);
}

QTEST_APPLESS_MAIN(TestCalendar)
#include "tst_calendar.moc"
