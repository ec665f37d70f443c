#pragma once

#include "stats/statistic.h"

/// The full name of a statistic in the language of the interface, with the short one in brackets, as menus,
/// window titles and buttons show it.
QString statisticName(Statistic statistic);
