#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QAction;
class QLineEdit;
class QStringListModel;

/// Offers the paths of earlier loads in a path field: while the user types, and all of them at an arrow in
/// the field.
class PathHistory : public QObject {
public:
    /// `name` is the object name of the arrow.
    PathHistory(QLineEdit* field, const QString& name);

    /// Puts a path in front of the others; the last ones go when there are more than `most`.
    void add(const QString& path, int most);
    /// Offers `further` paths behind these. `toolTip` is that of the arrow.
    void offer(const QStringList& further, const QString& toolTip);

private:
    QStringList m_paths; // the newest first
    QStringListModel* m_model;
    QAction* m_arrow;
};
