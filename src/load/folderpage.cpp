#include "load/folderpage.h"

#include "ui_folderpage.h"

#include <QFileInfo>

FolderPage::FolderPage(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui_FolderPage>())
{
    ui->setupUi(this);
    const QDate today = QDate::currentDate();
    setDates(today, today);
    connect(ui->kat_OpenBtn, &QPushButton::clicked, this, &FolderPage::directoryWanted);
    connect(ui->kat_LE_Path, &QLineEdit::textChanged, this, &FolderPage::changed);
    connect(ui->kat_DE_Date1, &QDateEdit::dateChanged, this, &FolderPage::changed);
    connect(ui->kat_DE_Date2, &QDateEdit::dateChanged, this, &FolderPage::changed);
    connect(ui->kat_chanTab, &ChannelTable::changed, this, &FolderPage::changed);
}

FolderPage::~FolderPage() = default;

QLineEdit* FolderPage::pathField() const
{
    return ui->kat_LE_Path;
}

ChannelTable* FolderPage::channelTable() const
{
    return ui->kat_chanTab;
}

QString FolderPage::path() const
{
    const QString path = ui->kat_LE_Path->text();
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

void FolderPage::setPath(const QString& path)
{
    ui->kat_LE_Path->setText(path);
}

QDate FolderPage::firstDate() const
{
    return ui->kat_DE_Date1->date();
}

QDate FolderPage::lastDate() const
{
    return ui->kat_DE_Date2->date();
}

void FolderPage::setDates(const QDate& first, const QDate& last)
{
    ui->kat_DE_Date1->setDate(first);
    ui->kat_DE_Date2->setDate(last);
}

void FolderPage::retranslate()
{
    ui->retranslateUi(this);
}
