#include "load/core/formatfilereader.h"

#include "base/globals.h"
#include "load/core/numbertext.h"

#include "support/near.h"
#include "support/scopedhome.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double notSet = std::numeric_limits<double>::quiet_NaN();

struct Outcome {
    QList<int> bad;
    QVector<QVector<double>> columns;
    bool operator==(const Outcome& other) const
    {
        if (bad != other.bad || columns.size() != other.columns.size())
            return false;
        for (int c = 0; c < columns.size(); ++c) {
            for (int i = 0; i < columns.at(c).size(); ++i) {
                const double a = columns.at(c).at(i), b = other.columns.at(c).value(i);
                if (!(a == b && std::signbit(a) == std::signbit(b)) && !(std::isnan(a) && std::isnan(b)))
                    return false;
            }
        }
        return true;
    }
};

Outcome parse(FormatFileReader& reader, const QString& file)
{
    double** data = nullptr;
    int lines = -1;
    Outcome result;
    result.bad = reader.ParseTheFile(file, &data, lines);
    for (int c = 0; c < reader.compiled().variables.size() && lines >= 0; ++c)
        result.columns.append(QVector<double>(data[c], data[c] + lines));
    return result;
}

/// The rules again, written plainly on QByteArray, with the number conversion of QString alone.
class SlowReader {
public:
    explicit SlowReader(const QString& format)
        : m_format(compileTemplate(format))
    {
    }

    Outcome parse(const QByteArray& content)
    {
        m_result = Outcome();
        m_result.columns.resize(m_format.variables.size());
        int index = 0;
        for (QByteArray line : content.split('\n')) {
            if (line.simplified().isEmpty() || line.startsWith('#'))
                continue;
            if (!m_format.positional)
                line = line.simplified();
            for (QVector<double>& column : m_result.columns)
                column.append(notSet);
            walk(line.trimmed(), index++);
        }
        return m_result;
    }

private:
    void markBad(int index)
    {
        if (!m_result.bad.contains(index))
            m_result.bad.append(index);
    }

    static double number(QByteArray field, bool* ok)
    {
        const QByteArray text = field.trimmed().replace(',', '.');
        return QString::fromLatin1(text.constData(), text.size()).toDouble(ok); // zero bytes included
    }

    void walk(const QByteArray& line, int index)
    {
        const QByteArray& code = m_format.code;
        int at = 0, element = 0;
        while (at < line.size() && element < code.size()) {
            const int byte = uchar(code.at(element));
            const bool last = element == code.size() - 1;
            const int stop = last ? -1 : line.indexOf(code.at(element + 1), at);
            if (byte >= 200) {
                const int width = m_format.positional ? 0 : m_format.variables.at(byte - 200).width;
                QByteArray field = width > 0 ? line.mid(at, width)
                    : stop < 0               ? line.mid(at)
                                             : line.mid(at, stop - at);
                if (width == 0 && !last && stop < 0)
                    markBad(index);
                if (width == 0 && !last && m_result.bad.size() > 200)
                    break;
                bool ok = false;
                double value = number(field, &ok);
                if (!ok && last && width == 0)
                    value = number(field.simplified().split(' ').constFirst(), &ok);
                m_result.columns[byte - 200][index] = ok ? value : 0.0;
                if (!ok) {
                    markBad(index);
                    break;
                }
                at += width > 0 ? width : field.size() + 1;
                element += width > 0 ? 1 : 2;
            } else if (byte >= 100) {
                const int width = m_format.skipped.at(byte - 100).width;
                if (width == 0 && stop < 0)
                    break;
                at = width > 0 ? at + width : stop + 1;
                element += width > 0 ? 1 : 2;
            } else if (uchar(line.at(at)) == byte) {
                ++at;
                ++element;
            } else {
                markBad(index);
                break;
            }
        }
        if (element < code.size() - 1)
            markBad(index);
    }

    FormatTemplate m_format;
    Outcome m_result;
};

} // namespace

class TestFormatFileReader : public QObject {
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void numbers_data();
    void numbers();
    void fastAgainstSlow_data();
    void fastAgainstSlow();
    void manyBadLines();
    void lineNumbers();
    void unreadable();
    void refusedTemplate();
    void hostile_data();
    void hostile();
    void longLine();
    void progressAndCancel();
    void blocksJoin();
};

void TestFormatFileReader::lines_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QVector<double>>("values"); // line by line
    QTest::addColumn<QList<int>>("bad");
    const auto row = [](const char* name, const char* format, const QByteArray& text,
                         const QVector<double>& values, const QList<int>& bad = {}) {
        QTest::newRow(name) << QString(format) << text << values << bad;
    };
    row("comma", "[t] [x]", "1,5 2.5", {1.5, 2.5});
    row("skip to blank", "<20> [t] [x]", "abc 1 2\n", {1, 2});
    row("width", "[t_12] [x] [y]", "1.0000000000 2   3", {1, 2, 3});
    row("width without blank", "[t_12] [x] [y]", "1.00000000002 3 4", {1, notSet, notSet}, {0});
    row("width not of the name's length", "[t_5] [x]", "1234567 2", {1234567, 2});
    row("positional", "<a_3>[x]", "ab  7\n  ab 8", {7, 8});
    row("positional keeps runs", "<a_3>[x] [y] [z]", "abc1  2 3", {1, 0, notSet}, {0});
    row("positional widens variables", "<a_3>[t_12] [y]", "abc1 2", {1, 2});
    row("too short", "[t] [x] [y]", "1", {1, notSet, notSet}, {0});
    row("one element short", "[t_12][x]", "123456789012\n1234567890127",
        {123456789012, notSet, 123456789012, 7});
    row("one missing", "[t] [x] [y]", "1 2\n3 4 5", {1, 2, notSet, 3, 4, 5}, {0});
    row("surplus", "[t] [x]", "1 2 3 four", {1, 2});
    row("surplus glued", "[t] [x]", "1 2;3", {1, 0}, {0});
    row("surplus behind a literal", "[t] [x];", "1 2; rest", {1, 2});
    row("comments", "[t] [x]", "#1 2\n  # text\n1 2", {0, notSet, 1, 2}, {0});
    row("words", "[t] [x]", "one two\n1 two", {0, notSet, 1, 0}, {0, 1});
    row("literal", "[t]: [x]", "1: 2\n1; 2\n1 :  2\n1:2", {1, 2, 0, notSet, 1, 2, 1, notSet}, {1, 3});
    row("blanks", "[t] [x]", "  1 \t 2 \r\n\r\n \t \n3 4\r\n", {1, 2, 3, 4});
    row("no last line end", "[t] [x]", "1 2\n3 4", {1, 2, 3, 4});
    row("mark of the byte order", "[t] [x]", "\xEF\xBB\xBF#c\n\xEF\xBB\xBF", {0, notSet}, {0});
    row("zero byte", "[t] [x]", QByteArray("1 2\n1\0 2\n3 4", 12), {1, 2, 0, notSet, 3, 4}, {1});
    row("built-in 5", "<Firsr_num>: [t_5] <Sec_num> [x];", "sec: 12345 phase 1e-9;", {12345, 1e-9});
    row("built-in 6", "[t] <D>@<D> [x] <D> <D> <D> <D>", "1 a@b 2 c d e f\n1 a@b 2 c d e", {1, 2, 1, 2}, {1});
    row("fields without a stop", "[a][b]", "5 6\n7", {0, notSet, 7, notSet}, {0, 1});
    row("skip without a stop", "<a>[b]",
        "5\n\xC8"
        "6",
        {notSet, notSet}, {0, 1});
    row("comma as the stop", "[a],[b]", "1,2,5\n1.5,2", {1, 2.5, 1.5, 2});
    row("special values", "[t] [x]", "1 nan\n2 -INF\n3 infinity", {1, notSet, 2, -HUGE_VAL, 3, 0}, {2});
}

void TestFormatFileReader::lines()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, text);
    QFETCH(QVector<double>, values);
    QFETCH(QList<int>, bad);
    const ScopedHome home;
    FormatFileReader reader(format);
    const Outcome got = parse(reader, home.write(QStringLiteral("a.txt"), text));
    QCOMPARE(got.bad, bad);
    const int width = got.columns.size();
    QCOMPARE(got.columns.constFirst().size() * width, values.size());
    for (int i = 0; i < values.size(); ++i)
        NEAR(got.columns.at(i % width).at(i / width), values.at(i), 0.0);
}

void TestFormatFileReader::numbers_data()
{
    QTest::addColumn<QByteArray>("text");
    const char* const texts[] = {"0", "-0", "1", "00012", "1.", ".5", "-.5", "+1", "+.5", "1e5", "1E+05",
        "1e-05", "9007199254740993", "9007199254740992", "9007199254740991.0", "1234567.0000000000",
        "-1.2345678901234567e-09", "123456789012345678901234567890", "0.1", "0.30000000000000004", "1e22",
        "1e23", "123e22", "4e-324", "1e-310", "2.2250738585072011e-308", "1.7976931348623157e308",
        "100000000000000000000", "0e-400", "0.000000000000000000001", "18446744073709551616",
        "99999999999999999999", "12345678.12345678", "1.00000000000000000000000000000000001", "8.5e-23",
        "1e00005", "nan", "NaN", "inf", "+inf", "-inf",
        // no numbers
        "", "-", ".", "1e", "1e+", "e5", "0x10", "1e400", "1e-400", "--1", "1..2", "1.2.3", "1_0", "1f",
        "nan(1)", "-nan", "infinity", "1e999999999999", "1 2", "1-2"};
    for (const char* text : texts)
        QTest::newRow(text) << QByteArray(text);
    QTest::newRow("1024 digits") << QByteArray(1024, '7').replace(700, 1, ".");
}

void TestFormatFileReader::numbers()
{
    QFETCH(QByteArray, text);
    bool ok = false;
    const double want = QString::fromLatin1(text).toDouble(&ok);
    double got = 7.0;
    QCOMPARE(numberFromText(text.constData(), text.constData() + text.size(), got), ok);
    NEAR(got, ok ? want : 7.0, 0.0);
    for (const bool many : {false, true}) {
        bool manyDigits = many;
        const char* const end = text.constData() + text.size();
        if (readPlainNumber(text.constData(), end, true, manyDigits, got) != end)
            continue;
        QVERIFY(ok);
        NEAR(got, want, 0.0);
    }
}

void TestFormatFileReader::fastAgainstSlow_data()
{
    QTest::addColumn<QString>("format");
    for (const char* format :
        {"[t] [x]", "<20> [t] [x]", "[t] [x] [y]", "[t_12] [x] [y]", "[t];[x]", "[t],[x]", "<a> [t];",
            "<Firsr_num>: [t_5] <Sec_num> [x];", "[t] <D>@<D> [x] <D> <D> <D> <D>", "<a_3>[x] [y]",
            "[t]: [x]", "[t]E[x]", "[t]1[x]", "<a>;<b> [x]", "[x] <r>", "[t]  [x]", "@[t_3][x]", "[x_2]"})
        QTest::newRow(format) << QString(format);
}

void TestFormatFileReader::fastAgainstSlow()
{
    QFETCH(QString, format);
    std::mt19937 random(20240229);
    const auto pick = [&random](int n) { return int(random() % quint32(n)); };
    const QList<QByteArray> pieces{"1", "22.5", "-3,25e-9", "1.2345678901234567e-10", "word", ";", ":", "@",
        ",", "E", "-", "nan", "\t", "  ", " ", " ", " ", " ", "#", QByteArray(1, '\0'), "\r", "\xD0\xB6", ".",
        "1e400", "12345678.0", "12345678901234567890"};
    const QByteArray model = format.toLatin1();
    const ScopedHome home;
    SlowReader slow(format);
    FormatFileReader reader(format);
    for (int round = 0; round < 60; ++round) {
        QByteArray text;
        for (int line = 0; line < 60; ++line) {
            // Most lines follow the template, with a number for each field, and one piece put in here and
            // there.
            for (int i = 0; i < model.size(); ++i) {
                if (pick(40) == 0)
                    text += pieces.at(pick(pieces.size()));
                const char c = model.at(i);
                if (c != '[' && c != '<') {
                    text += c;
                    continue;
                }
                i = model.indexOf(c == '[' ? ']' : '>', i);
                if (c == '<')
                    text += pick(2) ? "abc" : "7";
                else
                    text += QByteArray::number(
                        (pick(2000000) - 1000000) / double(pick(1000) + 1), pick(2) ? 'g' : 'e', pick(18));
            }
            text += pick(5) ? "\n" : " 5 \r\n";
        }
        const Outcome want = slow.parse(text);
        const Outcome got = parse(reader, home.write(QStringLiteral("a.txt"), text));
        if (!(got == want)) {
            int line = 0;
            while (line < want.columns.constFirst().size()
                && got.bad.contains(line) == want.bad.contains(line)
                && Outcome{{}, {{got.columns.constLast().value(line)}}}
                    == Outcome{{}, {{want.columns.constLast().value(line)}}})
                ++line;
            QFAIL(qPrintable(QStringLiteral("line %1 of ").arg(line)
                + QString::fromLatin1(text.toPercentEncoding(" ,;:@\n"))));
        }
    }
}

// Beyond 200 bad lines no field in front of others is converted, good lines included, and the log is cut
// short.
void TestFormatFileReader::manyBadLines()
{
    const ScopedHome home;
    for (const int badBefore : {200, 201}) {
        QByteArray head = QByteArray("x 1\n").repeated(badBefore) + "1 2\n3 4\n";
        FormatFileReader reader(QStringLiteral("[t] [x]"));
        const Outcome got = parse(reader, home.write(QStringLiteral("a.txt"), head));
        QCOMPARE(got.bad.size(), badBefore == 200 ? 200 : 203);
        QCOMPARE(std::isnan(got.columns.at(1).at(badBefore)), badBefore > 200);
    }
    FormatFileReader reader(QStringLiteral("[t] [x]"));
    LOG = true;
    QVERIFY(QDir().mkpath(home.file(QStringLiteral("log"))));
    const Outcome got = parse(reader, home.write(QStringLiteral("a.txt"), QByteArray("x\n").repeated(1000)));
    LOG = false;
    QCOMPARE(got.bad.size(), 1000);
    QStringList logs = QDir(home.file(QStringLiteral("log"))).entryList(QDir::Files);
    QCOMPARE(logs.size(), 1);
    QFile log(home.file(QStringLiteral("log/")) + logs.constFirst());
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QByteArray logged = log.readAll();
    QCOMPARE(logged.count('\n'), 201);
    QVERIFY(logged.contains("оши!!"));
}

void TestFormatFileReader::lineNumbers()
{
    const ScopedHome home;
    FormatFileReader reader(QStringLiteral("[x]"));
    parse(reader, home.write(QStringLiteral("a.txt"), "# head\n1\n\n\nbad\n5\n# mid\n7"));
    QCOMPARE(reader.badLines(), QList<int>({1}));
    QList<qint64> numbers;
    for (int i = 0; i < 4; ++i)
        numbers.append(reader.fileLine(i));
    QCOMPARE(numbers, QList<qint64>({2, 5, 6, 8}));
}

void TestFormatFileReader::unreadable()
{
    const ScopedHome home;
    FormatFileReader reader(QStringLiteral("[t] [x]"));
    for (const QString& file :
        {home.file(QStringLiteral("missing")), QStringLiteral("/"), QStringLiteral("/dev/zero")}) {
        double* mine[1] = {nullptr};
        double** data = mine;
        int lines = 77;
        QVERIFY(reader.ParseTheFile(file, &data, lines).isEmpty());
        QCOMPARE(lines, 77);
        QVERIFY(data == mine);
        QCOMPARE(reader.status(), FormatFileReader::Status::CannotOpen);
        QVERIFY(!reader.systemError().isEmpty());
    }
}

void TestFormatFileReader::refusedTemplate()
{
    const ScopedHome home;
    const QString file = home.write(QStringLiteral("a.txt"), "1 2\n");
    for (const QString& format :
        {QString("[x] ").repeated(60), QStringLiteral("1 2"), QStringLiteral("[x"), QStringLiteral("~[x]")}) {
        FormatFileReader reader(format);
        double** data = nullptr;
        int lines = 77;
        QVERIFY(reader.ParseTheFile(file, &data, lines).isEmpty());
        QCOMPARE(lines, 0);
        QCOMPARE(reader.status(), FormatFileReader::Status::TemplateRefused);
        reader.setNewFormat(QStringLiteral("[t] [x]"));
        QCOMPARE(parse(reader, file).columns.at(1), QVector<double>({2}));
    }
    QCOMPARE(FormatFileReader::NumOfVars(QStringLiteral("[t] <[> [x]")), 3);
}

void TestFormatFileReader::hostile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("lines");
    QByteArray noise(300000, '\0');
    std::mt19937 random(7);
    for (char& c : noise)
        c = char(random() & 0xFF);
    QTest::newRow("noise") << noise << -1;
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("comments only") << QByteArray("# a\n# b\n\n") << 0;
    QTest::newRow("line ends only") << QByteArray(3000000, '\n') << 0;
    QTest::newRow("zeros") << QByteArray(100000, '\0') << 1;
    QTest::newRow("cut mark") << QByteArray("\xEF\xBB") << 1;
    QTest::newRow("only mark") << QByteArray("\xEF\xBB\xBF") << 0;
}

void TestFormatFileReader::hostile()
{
    QFETCH(QByteArray, text);
    QFETCH(int, lines);
    const ScopedHome home;
    const QString file = home.write(QStringLiteral("a.txt"), text);
    for (const char* format : {"[t] [x]", "<a_1000000000><b_2000000000>[t] [x]", "[t_99] <a>@[x]"}) {
        FormatFileReader reader{QString(format)};
        const Outcome got = parse(reader, file);
        if (lines >= 0)
            QCOMPARE(got.columns.constFirst().size(), lines);
        QCOMPARE(got.bad.size(), got.columns.constFirst().size());
        QCOMPARE(reader.status() == FormatFileReader::Status::NoLines, got.columns.constFirst().isEmpty());
    }
}

void TestFormatFileReader::longLine()
{
    const ScopedHome home;
    FormatFileReader reader(QStringLiteral("[t] [x]"));
    Outcome got =
        parse(reader, home.write(QStringLiteral("a.txt"), "1 2\n" + QByteArray(5000000, '7') + "\n3 4\n"));
    QCOMPARE(got.bad, QList<int>({1}));
    QCOMPARE(got.columns.at(1).at(2), 4.0);
    got = parse(reader, home.write(QStringLiteral("a.txt"), QByteArray("1 2 ").repeated(1500000)));
    QCOMPARE(got.bad, QList<int>());
    QCOMPARE(got.columns.at(1), QVector<double>({2}));
}

void TestFormatFileReader::progressAndCancel()
{
    const ScopedHome home;
    const QString file = home.write(QStringLiteral("a.txt"), QByteArray("1.25 2.5\n").repeated(500000));
    FormatFileReader reader(QStringLiteral("[t] [x]"));
    QVector<double> shares;
    reader.setProgress([&shares](double share) {
        shares.append(share);
        return true;
    });
    QCOMPARE(parse(reader, file).columns.constFirst().size(), 500000);
    QVERIFY(shares.size() >= 4 && std::is_sorted(shares.begin(), shares.end()));
    QVERIFY(shares.constFirst() == 0.0 && shares.constLast() <= 1.0);
    reader.setProgress([](double share) { return share < 0.4; });
    QVERIFY(parse(reader, file).columns.constFirst().isEmpty());
    QCOMPARE(reader.status(), FormatFileReader::Status::Cancelled);
}

// Lines that lie across the ends of the read blocks.
void TestFormatFileReader::blocksJoin()
{
    const ScopedHome home;
    constexpr int lines = 400000; // several blocks
    constexpr int oddEvery = 40013; // a comment, then a line with a plus sign, which is not a plain one
    QByteArray text;
    for (int i = 0; i < lines; ++i) {
        const bool odd = i % oddEvery == 0;
        text += (odd ? "# remark\n+" : "") + QByteArray::number(i) + ' ' + QByteArray::number(i * 0.5, 'f', 1)
            + '\n';
        if (i == lines / 2)
            text += "bad\n";
    }
    FormatFileReader reader(QStringLiteral("[t] [x]"));
    const Outcome got = parse(reader, home.write(QStringLiteral("a.txt"), text));
    QCOMPARE(got.bad, QList<int>({lines / 2 + 1}));
    QCOMPARE(got.columns.constFirst().size(), lines + 1);
    for (int at = 0; at <= lines; ++at) {
        if (at == lines / 2 + 1)
            continue;
        const int i = at > lines / 2 ? at - 1 : at;
        QVERIFY(got.columns.at(0).at(at) == i && got.columns.at(1).at(at) == i * 0.5);
        QCOMPARE(reader.fileLine(at), qint64(at) + 1 + i / oddEvery + 1);
    }
}

QTEST_GUILESS_MAIN(TestFormatFileReader)
#include "tst_formatfilereader.moc"
