#pragma once

#include <QString>

/// A limit of a range `span` wide, with the digits that tell both ends apart and four more.
QString limitText(double value, double span);

/// The number in a text, with a point or a comma; false when it is none, or not finite.
bool readLimit(const QString& text, double* value);
