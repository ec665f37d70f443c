#include "load/properties.h"

#include "base/debuglog.h"
#include "base/paths.h"
#include "load/core/configfile.h"
#include "prompt/prompt.h"
#include "ui_properties.h"

#include <QDate>
#include <QEvent>
#include <QFileInfo>
#include <QIntValidator>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>

#include <limits>

namespace {

constexpr int lastPort = 65535;

/// Lets whole numbers be typed, without the group separators of the system's language.
void takeNumbers(QLineEdit* field, int least, int most)
{
    auto* validator = new QIntValidator(least, most, field);
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::RejectGroupSeparator);
    validator->setLocale(plain);
    field->setValidator(validator);
}

/// The settings that the dialog shows.
void copyShown(const Settings& from, Settings& to)
{
    to.removeF0Vals = from.removeF0Vals;
    to.winProp.extChannels = from.winProp.extChannels;
    to.updCycle = from.updCycle;
    to.cggtts.db_path = from.cggtts.db_path;
    to.AVAR_numPT_perTau = from.AVAR_numPT_perTau;
    to.simultaneousMoments = from.simultaneousMoments;
    to.DEV_PORT = from.DEV_PORT;
}

} // namespace

Properties::Properties(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_Properties>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_defaultsBtn = ui->buttonBox->addButton(QString(), QDialogButtonBox::ResetRole);
    m_defaultsBtn->setObjectName(QStringLiteral("defaultsBtn"));
    takeNumbers(ui->updCycleEdit, 0, std::numeric_limits<quint16>::max());
    takeNumbers(ui->avarLimitEdit, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    takeNumbers(ui->portEdit, 1, lastPort);
    connect(ui->dbPathEdit, &QLineEdit::textChanged, this, &Properties::showPathState);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &Properties::reject);
    m_defaultsBtn->setText(tr("Восстановить значения по умолчанию"));
    m_defaultsBtn->setToolTip(tr("Вернуть исходные значения всех полей, кроме каталога и кросс-обработки"));
    readXML();
    setNewSize(sizeHint());
}

Properties::~Properties() = default;

void Properties::readXML()
{
    settings = defaultSettings(QDate::currentDate());
    readSettings(paths::config() + QLatin1String("/recfiles.xml"), QLocale::system().name(), &settings);
    m_shown = settings;
    showSettings();
}

void Properties::showSettings()
{
    ui->removeF0Box->setChecked(settings.removeF0Vals);
    ui->extChannelsBox->setChecked(settings.winProp.extChannels);
    ui->updCycleEdit->setText(QString::number(settings.updCycle));
    ui->dbPathEdit->setText(settings.cggtts.db_path);
    ui->avarLimitEdit->setText(QString::number(settings.AVAR_numPT_perTau));
    (settings.simultaneousMoments ? ui->simultaneousBtn : ui->timeMarksBtn)->setChecked(true);
    ui->portEdit->setText(QString::number(settings.DEV_PORT));
    showPathState();
}

/// Tells, before the dialog is accepted, that the path will not be taken.
void Properties::showPathState()
{
    ui->dbPathNote->setText(tr("Такого каталога нет: останется прежний."));
    ui->dbPathNote->setHidden(QFileInfo(ui->dbPathEdit->text()).isDir());
}

void Properties::on_buttonBox_accepted()
{
    DebugLOG("Изменить параметры"); // verbatim
    const Settings normal;
    bool ok = false;
    // A number that no port can have does not convert, either.
    const int port = ui->portEdit->text().toInt(&ok);
    settings.DEV_PORT = ok && port >= 1 && port <= lastPort ? port : normal.DEV_PORT;
    const quint16 cycle = ui->updCycleEdit->text().toUShort(&ok);
    settings.updCycle = ok ? cycle : normal.updCycle;
    const int limit = ui->avarLimitEdit->text().toInt(&ok);
    settings.AVAR_numPT_perTau = ok ? limit : normal.AVAR_numPT_perTau;
    if (QFileInfo(ui->dbPathEdit->text()).isDir())
        settings.cggtts.db_path = ui->dbPathEdit->text();
    settings.removeF0Vals = ui->removeF0Box->isChecked();
    settings.winProp.extChannels = ui->extChannelsBox->isChecked();
    settings.simultaneousMoments = ui->simultaneousBtn->isChecked();
    m_shown = settings;
    showSettings();
    accept();
    emit PropChanged();
}

void Properties::on_buttonBox_clicked(QAbstractButton* button)
{
    if (button != m_defaultsBtn)
        return;
    const Settings normal;
    settings.removeF0Vals = normal.removeF0Vals;
    settings.DEV_PORT = normal.DEV_PORT;
    settings.updCycle = normal.updCycle;
    settings.winProp.extChannels = normal.winProp.extChannels;
    settings.AVAR_numPT_perTau = normal.AVAR_numPT_perTau;
    ui->removeF0Box->setChecked(settings.removeF0Vals);
    ui->portEdit->setText(QString::number(settings.DEV_PORT));
    ui->updCycleEdit->setText(QString::number(settings.updCycle));
    ui->extChannelsBox->setChecked(settings.winProp.extChannels);
    ui->avarLimitEdit->setText(QString::number(settings.AVAR_numPT_perTau));
}

void Properties::on_pushButton_clicked()
{
    const QString path =
        prompt::directory(this, tr("Выбрать каталог с базой данных cggtts.dblite"), ui->dbPathEdit->text());
    if (!path.isEmpty())
        ui->dbPathEdit->setText(path);
}

QSize Properties::sizeHint() const
{
    // The scroll area by itself asks for less than it holds.
    const QSize missing = ui->fields->sizeHint() - ui->scrollArea->sizeHint();
    return QDialog::sizeHint() + missing.expandedTo({0, 0});
}

void Properties::setNewSize(QSize size)
{
    const QSize room = screen()->availableGeometry().size();
    resize(size.expandedTo(minimumSizeHint()).boundedTo(room));
}

void Properties::reject()
{
    copyShown(m_shown, settings);
    showSettings();
    QDialog::reject();
}

void Properties::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        m_shown = settings;
        showSettings();
        ui->updCycleEdit->setFocus();
    }
    QDialog::showEvent(event);
}

void Properties::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        m_defaultsBtn->setText(tr("Восстановить значения по умолчанию"));
        m_defaultsBtn->setToolTip(
            tr("Вернуть исходные значения всех полей, кроме каталога и кросс-обработки"));
        showPathState();
    }
    QDialog::changeEvent(event);
}
