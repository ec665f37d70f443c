#pragma once

#include <QString>

/// The stability statistics that the program computes.
enum class Statistic { Sdev, Adev, Hdev, Mdev, Pdev, Tdev, Mtie };

constexpr int statisticCount = 7;

/// Short name for a table head. PDEV, HDEV and MDEV read the same in both languages.
QString statisticHead(Statistic statistic, bool english);

/// Title of the value axis: the short name, with the unit where the statistic has one (TDEV and MTIE are in
/// s).
QString statisticAxisTitle(Statistic statistic, bool english);

/// Number of the statistic among the processing results: 0 SDEV, 1 ADEV, 2 HDEV, 3 MTIE, 4 TDEV, 5 MDEV, 6
/// PDEV.
int varType(Statistic statistic);
/// A number outside 0 to 6 gives ADEV.
Statistic statisticOfVarType(int varType);

/// Number of the statistic in a stability graph: 0 SDEV, 1 ADEV, 2 HDEV, 3 MDEV, 4 MTIE, 5 TDEV; 6 PDEV.
unsigned char avarTypeOf(Statistic statistic);
/// A number outside 0 to 6 gives ADEV.
Statistic statisticOfAvarType(int avarType);
