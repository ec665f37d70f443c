#include "app/application.h"
#include "app/interfacelanguage.h"
#include "app/mainwindow.h"
#include "base/debuglog.h"
#include "base/globals.h"
#include "base/paths.h"
#include "resources/resources.h"
#include "stats/firfilter.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QTextCodec>

#include <cstdio>
#include <exception>

namespace {

constexpr int usageError = 2;

/// English only, so that it reads the same in every locale.
void describe(QCommandLineParser& parser)
{
    // As Qt's own options are written.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(QStringLiteral("Workstation for time and frequency metrology."));
    parser.addPositionalArgument(
        QStringLiteral("file"), QStringLiteral("Measurement files to open."), QStringLiteral("[file...]"));
    // Not Qt's ready-made options, which answer only when a window could be opened.
    parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Describe the arguments and exit.")});
    parser.addOption(
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Print the version and exit.")});
}

/// Answers --help and --version, which must work where there is no display. False when neither was asked.
bool answeredWithoutWindow(int argumentCount, char** arguments)
{
    QStringList words;
    for (int i = 0; i < argumentCount; ++i)
        words << QString::fromLatin1(arguments[i]);
    QCommandLineParser parser;
    describe(parser);
    parser.parse(words); // Qt's own options are still among the words: no complaints yet
    const bool help = parser.isSet(QStringLiteral("help"));
    if (!help && !parser.isSet(QStringLiteral("version")))
        return false;
    const QCoreApplication application(argumentCount, arguments);
    const QString answer = help ? parser.helpText()
                                : QCoreApplication::applicationName() + QLatin1Char(' ')
            + QCoreApplication::applicationVersion() + QLatin1Char('\n');
    std::fputs(answer.toUtf8().constData(), stdout);
    return true;
}

/// The single-byte encoding of the field's text files becomes the locale's. Not so where the system speaks
/// UTF-8: Qt names files through the same codec, and a file with a Russian name could no longer be opened.
void setTextCodec()
{
    constexpr int utf8 = 106; // the registered number of the encoding
    if (QTextCodec::codecForLocale()->mibEnum() != utf8)
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("Windows-1251"));
}

/// A flag file that holds "false" anywhere switches the updater off.
void readUpdateFlag()
{
    QFile flag(paths::config() + QLatin1String("/update"));
    if (QFileInfo(flag).isFile() && flag.open(QIODevice::ReadOnly) && flag.readAll().contains("false"))
        updateTheProgram = false;
    DebugLOG(updateTheProgram ? "true" : "false");
}

} // namespace

int main(int argumentCount, char** arguments)
{
    QCoreApplication::setApplicationName(QStringLiteral("Kronalys"));
    QCoreApplication::setApplicationVersion(Appver);
    if (answeredWithoutWindow(argumentCount, arguments))
        return 0;
    initResources();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    Application application(argumentCount, arguments);
    setTextCodec();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/Icon.ico")));
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        std::fprintf(stderr, "%s\n\n%s", parser.errorText().toUtf8().constData(),
            parser.helpText().toUtf8().constData());
        return usageError;
    }
    paths::makeAll();
    installDefaultFilter(paths::config());
    readUpdateFlag();
    interfaceLanguage::applyConfigured(QLocale::system().name());
    try {
        MainWindow window(argumentCount, arguments);
        window.show();
        return QApplication::exec();
    } catch (const std::exception& failure) {
        DebugLOG(failure.what());
        std::fprintf(stderr, "Kronalys could not start: %s\n", failure.what());
        return 1;
    }
}
