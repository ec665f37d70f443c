#include "load/core/bytetext.h"

#include <QTextCodec>

#include <algorithm>
#include <limits>

namespace {

QTextCodec* cyrillic()
{
    static QTextCodec* const codec = QTextCodec::codecForName("Windows-1251");
    return codec;
}

int byteCount(const char* begin, const char* end)
{
    return int(std::min<std::ptrdiff_t>(end - begin, std::numeric_limits<int>::max()));
}

} // namespace

bool isUtf8(const char* begin, const char* end)
{
    if (std::all_of(begin, end, [](char c) { return uchar(c) < 0x80; }))
        return true;
    static QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    codec->toUnicode(begin, byteCount(begin, end), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

QString textFromBytes(const char* begin, const char* end)
{
    const int count = byteCount(begin, end);
    if (!cyrillic() || isUtf8(begin, end))
        return QString::fromUtf8(begin, count);
    return cyrillic()->toUnicode(begin, count);
}
