#include "stats/statistic.h"

#include <array>

namespace {

struct Entry {
    Statistic statistic;
    const char* russian;
    const char* english;
    int varType;
    int avarType;
    bool seconds;
};

constexpr std::array<Entry, statisticCount> entries = {{
    {Statistic::Sdev, "СКО", "SDEV", 0, 0, false}, // verbatim
    {Statistic::Adev, "СКДО", "ADEV", 1, 1, false}, // verbatim
    {Statistic::Hdev, "HDEV", "HDEV", 2, 2, false}, // the same in both languages
    {Statistic::Mdev, "MDEV", "MDEV", 5, 3, false}, // the same in both languages
    {Statistic::Pdev, "PDEV", "PDEV", 6, 6, false}, // the same in both languages
    {Statistic::Tdev, "ДВИ", "TDEV", 4, 5, true}, // verbatim
    {Statistic::Mtie, "МОВИ", "MTIE", 3, 4, true}, // verbatim
}};

const Entry& entryOf(Statistic statistic)
{
    for (const Entry& entry : entries) {
        if (entry.statistic == statistic)
            return entry;
    }
    return entries[1];
}

Statistic statisticWith(int Entry::*number, int value)
{
    for (const Entry& entry : entries) {
        if (entry.*number == value)
            return entry.statistic;
    }
    return Statistic::Adev;
}

} // namespace

QString statisticHead(Statistic statistic, bool english)
{
    const Entry& entry = entryOf(statistic);
    return QString::fromUtf8(english ? entry.english : entry.russian);
}

QString statisticAxisTitle(Statistic statistic, bool english)
{
    const QString head = statisticHead(statistic, english);
    if (!entryOf(statistic).seconds)
        return head;
    return head + (english ? QStringLiteral(", s") : QStringLiteral(", с")); // verbatim
}

int varType(Statistic statistic)
{
    return entryOf(statistic).varType;
}

Statistic statisticOfVarType(int number)
{
    return statisticWith(&Entry::varType, number);
}

unsigned char avarTypeOf(Statistic statistic)
{
    return static_cast<unsigned char>(entryOf(statistic).avarType);
}

Statistic statisticOfAvarType(int number)
{
    return statisticWith(&Entry::avarType, number);
}
