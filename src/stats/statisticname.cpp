#include "stats/statisticname.h"

#include <QCoreApplication>

QString statisticName(Statistic statistic)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("Statistic", text); };
    switch (statistic) {
    case Statistic::Sdev:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Стандартное отклонение (СКО)"));
    case Statistic::Adev:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Девиация Аллана (СКДО)"));
    case Statistic::Hdev:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Девиация Адамара (HDEV)"));
    case Statistic::Mdev:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Модифицированная девиация Аллана (MDEV)"));
    case Statistic::Pdev:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Параболическая девиация (PDEV)"));
    case Statistic::Tdev:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Девиация времени (ДВИ)"));
    case Statistic::Mtie:
        return tr(QT_TRANSLATE_NOOP("Statistic", "Максимальная ошибка временного интервала (МОВИ)"));
    }
    return {};
}
