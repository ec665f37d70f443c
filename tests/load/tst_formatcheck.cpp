#include "load/core/fileguess.h"
#include "load/core/formatcheck.h"
#include "load/core/formattemplate.h"
#include "load/core/winprop.h"

#include "support/scopedhome.h"

#include <QtTest>

class TestFormatCheck : public QObject {
    Q_OBJECT

private slots:
    void verdict_data();
    void verdict();
    void reason_data();
    void reason();
    void compiledTemplate_data();
    void compiledTemplate();
    void builtinTemplatesCompile();
    void guess_data();
    void guess();
    void guessWithoutFile();
};

void TestFormatCheck::verdict_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("correct");
    QTest::addColumn<QString>("trace");
    const auto row = [](const char* format, bool correct, const char* trace = "") {
        QTest::newRow(format) << QString::fromUtf8(format) << correct << QString::fromUtf8(trace);
    };
    row("", false);
    row("; ,", false);
    row("[t] [x]", true);
    row("<20> [t]", true);
    row("[x] ; [y]", true);
    row("a[x]", false);
    row("[x]a", false);
    row("[x]1[y]", false);
    row("[x]ж[y]", false);
    row("[x", false);
    row("[x]]", false);
    row("[x] [", false);
    row("[a[b]", false);
    row("<[x]>", false);
    row("[<x>]", false);
    row("[x>", false);
    row("[t_12] [x]", true);
    row("[t_-3] [x]", true);
    row("<Firsr_num> [x]", false, "!number 10");
    row("[t_] [x]", false, "!number 3");
    row("[a_b_3]", false, "!number 6");
    row("[]", false, "!cmnt name 1");
    row("[ x]", true);
    row("[;x]", false, "!cmnt name 3");
    row("[_5]", false, "!cmnt name 3");
    row("[фаза]", true);
    row("[a[b]]", false); // the reader refuses it
    row("<a>", true);
}

void TestFormatCheck::verdict()
{
    QFETCH(QString, format);
    const FormatVerdict verdict = checkFormat(format);
    QTEST(verdict.correct, "correct");
    QTEST(verdict.trace, "trace");
}

void TestFormatCheck::reason_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("correct");
    QTest::addColumn<int>("reason");
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("instead");
    const auto row = [](const char* name, const QString& format, bool correct, FormatReason reason,
                         const char* what = "", int number = 0, const char* instead = "") {
        QTest::newRow(name) << format << correct << int(reason) << QString::fromUtf8(what) << number
                            << QString::fromUtf8(instead);
    };
    row("good", "[t_12] <a>;[x]", true, FormatReason::None);
    row("empty", "", false, FormatReason::Empty);
    row("no field", "; ,", false, FormatReason::NoField);
    row("open", "[x] [y", false, FormatReason::Brackets);
    row("mixed", "<[x]>", false, FormatReason::Brackets);
    row("nested", "[a[b]]", false, FormatReason::Brackets);
    row("no width", "[t] [x_]", false, FormatReason::Width, "[x_]");
    row("no name", "<a> [;x]", false, FormatReason::Name, "[;x]");
    row("letter", "[t]T[x]", false, FormatReason::Letter, "T", 3);
    row("letter beyond ASCII", QString::fromUtf8("[x]ж"), false, FormatReason::Letter, "ж", 3);
    row("digit", "2[x]", false, FormatReason::Letter, "2");
    for (const char* const c : {"\\", "^", "_", "`", "{", "|", "}", "~", "°", "–"})
        row(c, QString::fromUtf8("[t] %1[x]").arg(QString::fromUtf8(c)), false, FormatReason::Literal, c, 4);
    row("two units", QString::fromUtf8("[t]🙂[x]"), false, FormatReason::Literal, "🙂", 3);
    row("tab", "[t]\t[x]", false, FormatReason::Literal, "табуляция", 3);
    row("no-break blank", "[t]" + QString(QChar(0xa0)) + "[x]", false, FormatReason::Literal, "U+00A0", 3);
    row("all literals", "[t] !\"#$%&'()*+,-./:;=?@[x]", true, FormatReason::None);
    row("inside a name", "[t~|] <b {}> [x]", true, FormatReason::None);
    row("56 variables", QString("[x] ").repeated(56), true, FormatReason::None);
    row("57 variables", QString("[x] ").repeated(57), false, FormatReason::TooManyVariables);
    row("100 skipped", QString("<a> ").repeated(100) + "[x]", true, FormatReason::None);
    row("101 skipped", QString("<a> ").repeated(101) + "[x]", false, FormatReason::TooManySkipped);
    row("time alone", "<20> [t]", true, FormatReason::NoData);
    row("skipped alone", "<a>", true, FormatReason::NoData);
    row("side by side", "[t_12][x][y]", true, FormatReason::NoStop, "[x]");
    row("skipped before", "[t] <a>[x]", true, FormatReason::NoStop, "<a>");
    row("fixed side by side", "[t_12][x]", true, FormatReason::None);
    row("widths off", "<a_3>[t_12][x]", true, FormatReason::NoStop, "[t_12]");
    row("one digit", "[t_5] [x]", true, FormatReason::WidthUnread, "[t_5]", 0, "[t_05]");
    row("long name", "[t] [time_12] [x]", true, FormatReason::WidthUnread, "[time_12]", 0, "[time_00012]");
    row("three digits", "[t_123] [x]", true, FormatReason::WidthUnread, "[t_123]", 12);
    row("negative", "[t_-5] [x]", true, FormatReason::WidthUnread, "[t_-5]");
    row("behind a skipped width", "<a_3> [t_12] [x]", true, FormatReason::WidthUnread, "[t_12]");
}

void TestFormatCheck::reason()
{
    QFETCH(QString, format);
    QFETCH(int, reason);
    QFETCH(QString, what);
    QFETCH(QString, instead);
    const FormatVerdict verdict = checkFormat(format);
    QTEST(verdict.correct, "correct");
    QCOMPARE(int(verdict.reason), reason);
    QCOMPARE(verdict.what, what);
    QTEST(verdict.number, "number");
    QCOMPARE(verdict.instead, instead);
    const QString text = verdict.reasonText();
    QCOMPARE(text.isEmpty(), verdict.reason == FormatReason::None);
    QVERIFY(text.contains(what) && text.contains(instead) && !text.contains("%1"));
    if (!verdict.correct && verdict.reason != FormatReason::Empty)
        return;
    // Whatever passes here is read, except for what has no variable at all.
    const TemplateFault fault = compileTemplate(format).fault;
    QVERIFY(fault == TemplateFault::None || fault == TemplateFault::NoVariable);
}

void TestFormatCheck::compiledTemplate_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("fault");
    QTest::addColumn<QString>("fields"); // name:width of the variables, then of the skipped fields
    const auto row = [](const char* format, TemplateFault fault, const char* fields = "") {
        QTest::newRow(format) << QString::fromUtf8(format) << int(fault) << QString::fromUtf8(fields);
    };
    row("[t_12] [x]", TemplateFault::None, "t:12 x:0 |");
    row("[t_5] [time_5] [t_123]", TemplateFault::None, "t:0 time:0 t:12 |");
    row("[ab_1]2 [x]", TemplateFault::None, "ab:0 x:0 |");
    row("[t_-5] <a_-5>", TemplateFault::None, "t:0 | a:0");
    row("<a_7>[x] <Firsr_num>; <20>", TemplateFault::None, "x:0 | a:7 Firsr:0 20:0");
    row("[x] _", TemplateFault::Literal);
    row("[x]]", TemplateFault::Literal);
    row("[t]\t[x]", TemplateFault::Literal);
    row("[t]Y[x]", TemplateFault::Literal);
    row("[t]X[x]", TemplateFault::None, "t:0 x:0 |");
    row("[t]ж[x]", TemplateFault::Literal);
    row("<a> ; <b>", TemplateFault::NoVariable);
    row("", TemplateFault::NoVariable);
    row("[x] [y", TemplateFault::Brackets);
    row("[x] <y", TemplateFault::Brackets);
    row("<[x]>", TemplateFault::Brackets);
    row("[a[b]", TemplateFault::Brackets);
}

void TestFormatCheck::compiledTemplate()
{
    QFETCH(QString, format);
    const FormatTemplate compiled = compileTemplate(format);
    QTEST(int(compiled.fault), "fault");
    QString fields;
    for (const TemplateField& field : compiled.variables)
        fields += QStringLiteral("%1:%2 ").arg(field.name).arg(field.width);
    if (compiled.fault == TemplateFault::None)
        fields += QLatin1Char('|');
    for (const TemplateField& field : compiled.skipped)
        fields += QStringLiteral(" %1:%2").arg(field.name).arg(field.width);
    QTEST(fields, "fields");
}

void TestFormatCheck::builtinTemplatesCompile()
{
    QCOMPARE(winProp.formats, builtinTemplates());
    QCOMPARE(winProp.formats.size(), 6);
    for (const QString& format : builtinTemplates())
        QCOMPARE(compileTemplate(format).fault, TemplateFault::None);
    QCOMPARE(compileTemplate(QStringLiteral("[t] [x]")).code, QByteArray("\xC8 \xC9"));
    QCOMPARE(compileTemplate(QString("[x] ").repeated(56)).fault, TemplateFault::None);
    QCOMPARE(compileTemplate(QString("[x] ").repeated(57)).fault, TemplateFault::TooManyVariables);
    QCOMPARE(compileTemplate(QString("<a> ").repeated(100) + "[x]").fault, TemplateFault::None);
    QCOMPARE(compileTemplate(QString("<a> ").repeated(101) + "[x]").fault, TemplateFault::TooManySkipped);
    QCOMPARE(dataNames(QStringLiteral("[a] [t] [b]")), QStringList({"a", "b"}));
}

void TestFormatCheck::guess_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QDateTime>("start"); // null for the time at which the file was made
    const QDateTime made;
    const QDateTime told(QDate(2024, 2, 3), QTime(4, 5, 6));
    const auto row = [](const char* name, const QByteArray& content, FileKind kind, const QDateTime& start) {
        QTest::newRow(name) << content << int(kind) << start;
    };
    row("empty", "", FileKind::Other, made);
    row("two", "1 2.5e-9\r\n", FileKind::Hrl315, made);
    row("three", "  1\t2  3\n", FileKind::Hrl314, made);
    row("four", "1 2 3 4\n", FileKind::Other, made);
    row("words", "one two\n", FileKind::Other, made);
    row("blank line ends the search", "\n1 2\n", FileKind::Other, made);
    row("comment", "# 03.02.24 04:05:06 - 04.02.24 00:00:00\n# 01.01.01 00:00:00\n1 2\n", FileKind::Hrl315,
        told);
    row("start", "Start: 2024-02-03  04:05:06 \n# x\n1 2 3\n", FileKind::Hrl314, made);
    row("start last", "# x\nStart: 2024-02-03  04:05:06 \n1 2 3\n", FileKind::Hrl314, told);
    row("century", "# 03.02.70 04:05:06\n", FileKind::Other, QDateTime(QDate(1970, 2, 3), QTime(4, 5, 6)));
    row("mark", "\xEF\xBB\xBF# 03.02.24 04:05:06\n1 2\n", FileKind::Hrl315, told);
    row("long line", QByteArray(300000, '1'), FileKind::Other, made);
    row("zeros", QByteArray(5000, '\0'), FileKind::Other, made);
}

void TestFormatCheck::guess()
{
    QFETCH(QByteArray, content);
    QFETCH(QDateTime, start);
    const ScopedHome home;
    const QDateTime before = QDateTime::currentDateTime().addSecs(-5);
    const FileGuess guess = guessFile(home.write(QStringLiteral("file.txt"), content), QDateTime());
    QTEST(int(guess.kind), "kind");
    if (start.isNull())
        QVERIFY(guess.start >= before && guess.start <= QDateTime::currentDateTime().addSecs(5));
    else
        QCOMPARE(guess.start, start);
}

void TestFormatCheck::guessWithoutFile()
{
    const QDateTime now(QDate(2020, 1, 1), QTime(0, 0));
    const FileGuess missing = guessFile(QStringLiteral("/no/such/file"), now);
    QCOMPARE(missing.kind, FileKind::Unknown);
    QCOMPARE(missing.start, now);
    QCOMPARE(guessFile(QStringLiteral("/"), now).kind, FileKind::Unknown);
    QCOMPARE(guessFile(QStringLiteral("/dev/zero"), now).kind, FileKind::Unknown);
    QCOMPARE(templateFor(FileKind::Hrl314), QStringLiteral("[t] [x] [y]"));
    QCOMPARE(templateFor(FileKind::Other), QStringLiteral("[t] [x]"));
}

QTEST_GUILESS_MAIN(TestFormatCheck)
#include "tst_formatcheck.moc"
