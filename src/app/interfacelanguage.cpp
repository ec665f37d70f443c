#include "app/interfacelanguage.h"

#include "base/debuglog.h"
#include "base/globals.h"
#include "base/language.h"
#include "base/paths.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

namespace interfaceLanguage {

namespace {

struct Translators {
    QPointer<QTranslator> own, qt;
};

Translators& installed()
{
    static Translators translators;
    return translators;
}

QTranslator* install(const QStringList& files, const QString& directory)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    for (const QString& file : files) {
        if (translator->load(file, directory)) {
            QCoreApplication::installTranslator(translator);
            return translator;
        }
    }
    delete translator;
    return nullptr;
}

} // namespace

void apply(const QString& lang)
{
    App_lang = lang == QLatin1String("en") ? lang : QStringLiteral("ru");
    Translators& now = installed();
    // A translator that goes leaves Qt's list by itself.
    delete now.own;
    delete now.qt;
    now.qt = install({QLatin1String("qt_") + App_lang, QLatin1String("qtbase_") + App_lang},
        QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    if (language::isEnglish()) {
        now.own = install({QStringLiteral("Kronalys_en.qm")}, QStringLiteral(":/lang"));
        if (!now.own)
            DebugLOG("The English translation was not found");
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
}

void applyConfigured(const QString& localeName)
{
    const QString file = paths::config() + QLatin1String("/recfiles.xml");
    apply(language::fromFile(file, localeName, localeName));
}

} // namespace interfaceLanguage
