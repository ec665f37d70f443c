#pragma once

#include <QByteArray>

/// One RGB picture as a TIFF file: little-endian, one strip, 8 bits a sample, Deflate. `rgb` holds
/// width*height pixels of three bytes, rows from the top without padding. A size that does not match gives an
/// empty array.
QByteArray encodeTiff(const QByteArray& rgb, int width, int height, int dotsPerInch);
