#include "stats/statisticname.h"

#include <QCoreApplication>

QString statisticName(Statistic statistic)
{
    const auto translated = [](const char* text) { return QCoreApplication::translate("Statistic", text); };
    switch (statistic) {
    case Statistic::Sdev:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Стандартное отклонение (СКО)"));
    case Statistic::Adev:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Девиация Аллана (СКДО)"));
    case Statistic::Hdev:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Девиация Адамара (HDEV)"));
    case Statistic::Mdev:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Модифицированная девиация Аллана (MDEV)"));
    case Statistic::Pdev:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Параболическая девиация (PDEV)"));
    case Statistic::Tdev:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Девиация времени (ДВИ)"));
    case Statistic::Mtie:
        return translated(QT_TRANSLATE_NOOP("Statistic", "Максимальная ошибка временного интервала (МОВИ)"));
    }
    return {};
}
