#pragma once

#include "load/core/readformat.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// The six built-in format templates, in their order in the list.
QStringList builtinTemplates();

/// What the loading dialog keeps from run to run. Members of the same meaning carry the element names of the
/// configuration file.
struct OpenGlobForm_winProp {
    /// Format templates, and the most that the list keeps.
    QStringList formats = builtinTemplates();
    int frmt_MaxNum = 20;
    /// Column formats by name.
    QMap<QString, ReadFormat> ASCIIformats;
    /// Opened directories and files, the newest first, and the most that the list keeps.
    QStringList openedPathS;
    int openedPath_MaxNum = 10;
    /// 16 channels in the loading dialog, instead of 8.
    bool extChannels = false;
};

extern OpenGlobForm_winProp winProp;
