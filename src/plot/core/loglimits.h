#pragma once

/// Values that the scales of the graph library can hold on a logarithmic axis.
constexpr double logLow = 1e-99;
constexpr double logHigh = 1e99;
