#include "load/core/numbertext.h"

#include <QString>
#include <QtAlgorithms>
#include <QtEndian>

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <system_error>

namespace {

constexpr int longestNumber = 1024; // characters
constexpr quint64 largestExact = quint64(1) << 53; // whole numbers up to here are doubles
constexpr int largestPower = 22; // powers of ten up to here are doubles
constexpr double powers[largestPower + 1] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

static_assert(FLT_EVAL_METHOD == 0, "one rounding only");

/// A decimal number as it stands in a text: whole * 10^exponent, where `whole` has wrapped around for too
/// many digits.
struct Decimal {
    quint64 whole;
    std::ptrdiff_t digits; // leading zeros too
    std::ptrdiff_t exponent;
    bool negative;
};

/// Above 9 for other characters.
inline quint64 digitAt(const char* at)
{
    return quint64(uchar(*at)) - '0';
}

/// Appends the digits at the front of [at, end) to `whole` and gives their end. Eight characters at a time,
/// the first one in the lowest byte: digits become their values, what follows them is pushed out and the
/// places in front fill with zeros; then neighbours are joined to pairs, fours and eight.
inline const char* readDigits(const char* at, const char* end, quint64& whole)
{
    static constexpr quint64 shift[9] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    while (end - at >= 8) {
        quint64 word = qFromLittleEndian<quint64>(at) ^ 0x3030303030303030;
        const quint64 others =
            ((word + 0x7676767676767676) | word) & 0x8080808080808080; // the lowest mark is right
        const uint count = others ? qCountTrailingZeroBits(others) / 8 : 8;
        if (count == 0)
            return at;
        word <<= 64 - 8 * count;
        word = word * 10 + (word >> 8);
        const quint64 pairs = 0x000000FF000000FF;
        word = ((word & pairs) * 0x000F424000000064 + ((word >> 16) & pairs) * 0x0000271000000001) >> 32;
        whole = whole * shift[count] + word;
        at += count;
        if (count < 8)
            return at;
    }
    for (; at < end && digitAt(at) < 10; ++at)
        whole = whole * 10 + digitAt(at);
    return at;
}

inline const char* readExponent(const char* at, const char* end, std::ptrdiff_t& exponent)
{
    const bool minus = at < end && *at == '-';
    if (at < end && (minus || *at == '+'))
        ++at;
    const char* const from = at;
    int value = 0;
    for (; at < end && digitAt(at) < 10 && at - from < 5; ++at)
        value = value * 10 + int(digitAt(at));
    exponent += minus ? -value : value;
    return at == from || at - from == 5 ? nullptr : at;
}

/// The end of the number. Null when there is no digit at the front, or an exponent mark without a short
/// exponent.
inline const char* readDecimal(const char* at, const char* end, bool comma, Decimal& number)
{
    number.negative = at < end && *at == '-';
    at += number.negative ? 1 : 0;
    const char* const from = at;
    quint64 whole = 0;
    at = readDigits(at, end, whole);
    number.digits = at - from;
    number.exponent = 0;
    if (at == from)
        return nullptr;
    if (at < end && (*at == '.' || (comma && *at == ','))) {
        const char* const fraction = ++at;
        at = readDigits(at, end, whole);
        number.exponent = fraction - at;
        number.digits -= number.exponent;
    }
    number.whole = whole;
    if (at < end && (*at | 0x20) == 'e')
        return readExponent(at + 1, end, number.exponent);
    return at;
}

// Both the whole number and the power of ten are doubles, so that one rounding gives the nearest double, as
// every correct conversion does.
inline bool exactValue(Decimal number, double& value)
{
    if (number.digits > 19) // would not fit
        return false;
    if (number.whole > largestExact && number.whole % 100000000 == 0) {
        number.whole /= 100000000;
        number.exponent += 8;
    }
    if (number.whole > largestExact || number.exponent > largestPower || number.exponent < -largestPower)
        return false;
    const double size = number.exponent < 0 ? double(qint64(number.whole)) / powers[-number.exponent]
                                            : double(qint64(number.whole)) * powers[number.exponent];
    // A table, since the sign of measured values is random and a branch on it would often be mispredicted.
    static constexpr double sign[2] = {1.0, -1.0};
    value = size * sign[number.negative ? 1 : 0];
    return true;
}

/// std::from_chars, for a text that starts as a decimal number. It agrees with QString::toDouble in the C
/// locale when the number neither overflows nor underflows: both give the nearest double.
const char* nearestValue(const char* begin, const char* end, double& value)
{
    double result = 0.0;
    const std::from_chars_result read = std::from_chars(begin, end, result);
    if (read.ec != std::errc() || read.ptr - begin > longestNumber)
        return nullptr;
    value = result;
    return read.ptr;
}

bool startsAsNumber(const char* begin, const char* end)
{
    if (begin < end && *begin == '-')
        ++begin;
    return begin < end && isDigit(*begin);
}

} // namespace

const char* readPlainNumber(const char* begin, const char* end, bool comma, bool& manyDigits, double& value)
{
    if (manyDigits) {
        if (!startsAsNumber(begin, end))
            return nullptr;
        const char* const behind = nearestValue(begin, end, value);
        if (!behind || behind == end || !comma || *behind != ',')
            return behind;
    }
    Decimal number;
    const char* const behind = readDecimal(begin, end, comma, number);
    if (!behind || exactValue(number, value))
        return behind;
    manyDigits = true;
    return numberFromText(begin, behind, value) ? behind : nullptr;
}

bool numberFromText(const char* begin, const char* end, double& value)
{
    if (begin >= end || end - begin > longestNumber)
        return false;
    char text[longestNumber];
    char* const textEnd = std::replace_copy(begin, end, text, ',', '.');
    double result = 0.0;
    if (startsAsNumber(text, textEnd) && nearestValue(text, textEnd, result) == textEnd) {
        value = result;
        return true;
    }
    bool ok = false;
    result = QString::fromLatin1(text, int(textEnd - text)).toDouble(&ok);
    if (ok)
        value = result;
    return ok;
}
