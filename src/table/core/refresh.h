#pragma once

struct Record;

/// How the samples of a record read anew stand to those read before.
enum class Refresh {
    Newer, // the same ones, and later ones behind them
    NewerTurned, // the same with the other sign, and later ones
    NotNewer, // the same ones, no later ones
    Other, // of another recording, or of another time or interval
};

/// Compares the beginnings. `before` may have been turned, and may have other names than `fresh`.
Refresh compareFresh(Record& before, Record& fresh);

/// Changes the sign of all values.
void turnValues(Record& rec);
