#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QWidget>

#include <memory>

class ChannelTable;
class QLineEdit;
class Ui_FolderPage;

/// The page of the loading dialog that asks which days and channels of a recording directory to look at.
class FolderPage : public QWidget {
    Q_OBJECT
public:
    explicit FolderPage(QWidget* parent = nullptr);
    ~FolderPage() override;

    QLineEdit* pathField() const;
    ChannelTable* channelTable() const;

    /// The directory, absolute; empty when none is given.
    QString path() const;
    void setPath(const QString& path);
    QDate firstDate() const;
    QDate lastDate() const;
    void setDates(const QDate& first, const QDate& last);

    /// Shows the words of the current language.
    void retranslate();

signals:
    /// The user asks for a directory.
    void directoryWanted();
    /// A field was changed.
    void changed();

private:
    std::unique_ptr<Ui_FolderPage> ui;
};
