#pragma once

// Modified Julian days and Gregorian dates, in whole numbers.

/// Date of a modified Julian day, in the order year, month (1 to 12), day (1 to 31). Meant for dates from the
/// year -4000 on. A day too far away for an int year gives 0, 0, 0. Null pointers are passed over.
void MjdToDate(long mjd, int* year, int* month, int* day);

/// Modified Julian day of a Gregorian date, for years from 1 on. Arguments beyond +-1,000,000,000 give 0.
long DateToMjd(long year, long month, long day);
