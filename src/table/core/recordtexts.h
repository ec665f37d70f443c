#pragma once

#include <QString>

struct Record;

/// The name of a record in graphs, tables and messages: "measured - reference (channel)".
QString recordName(const Record& record);

/// The default limit of the columns "Max Y" and "Max VarY": "1" for phase, "100" for every other kind of
/// data.
QString defaultLimit(int dataType);
