#pragma once

/// The number that the characters [begin, end) spell.
///
/// Accepts what QString::toDouble accepts in the C locale, with "," read as ".": an optional sign, decimal
/// digits with an optional point, an optional exponent; "inf", "+inf", "-inf" and "nan" in any case of
/// letters. Not accepted are white space inside, hexadecimal, "infinity", a signed nan, and numbers that
/// overflow or underflow a double. Texts of more than 1024 characters are no number. White space at both ends
/// must be off already. On false the value is untouched.
bool numberFromText(const char* begin, const char* end, double& value);

/// Reads a plain decimal number at the front of [begin, end): an optional "-", a digit, then digits with at
/// most one decimal sign, an optional exponent; the result points behind it. Null when the text does not
/// start so or needs numberFromText(). A non-null result goes with the value that numberFromText() gives for
/// the same characters. `comma` allows "," as the decimal sign. `manyDigits` belongs to the column and is
/// only a matter of speed: it is set when the numbers have more digits than the quick way can take.
const char* readPlainNumber(const char* begin, const char* end, bool comma, bool& manyDigits, double& value);

/// As QByteArray's trimmed() and simplified() see it: blank, tab, line feed, vertical tab, form feed, return.
inline bool isWhite(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
