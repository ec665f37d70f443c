#pragma once

#include <QString>

/// A text for a tool tip that shows it as it stands: names may hold what would be taken for markup.
inline QString plainToolTip(const QString& text)
{
    return QStringLiteral("<qt>") + text.toHtmlEscaped() + QStringLiteral("</qt>");
}
