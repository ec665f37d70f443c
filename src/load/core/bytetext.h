#pragma once

#include <QString>

/// The text that bytes of a file spell: UTF-8, or Windows-1251 where they are not.
QString textFromBytes(const char* begin, const char* end);

/// Whether the bytes are UTF-8.
bool isUtf8(const char* begin, const char* end);
