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
    row("[t]\\[x]", true); // the reader refuses it
}

void TestFormatCheck::verdict()
{
    QFETCH(QString, format);
    const FormatVerdict verdict = checkFormat(format);
    QTEST(verdict.correct, "correct");
    QTEST(verdict.trace, "trace");
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
