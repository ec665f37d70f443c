#include "base/globals.h"

QString Appver = QStringLiteral("1.24.02.376");
QString DEBUGSTR, GEBUGSTR;
QDateTime debDay;
QByteArray debArr;
QDir WorkFolder = QDir::current();
QString RecTypes[4] = {
    QStringLiteral(QT_TRANSLATE_NOOP("MainWindow", "фаза")),
    QStringLiteral(QT_TRANSLATE_NOOP("MainWindow", "температура")),
    QStringLiteral(QT_TRANSLATE_NOOP("MainWindow", "влажность")),
    QStringLiteral(QT_TRANSLATE_NOOP("MainWindow", "параметр")),
};
quint8 numOfRecTypes = 4;
const QString Formats[numOfFormats] = {
    QStringLiteral("MM/dd/yyyy"),
    QStringLiteral("dd.MM.yyyy"),
    QStringLiteral("MM/dd/yy"),
    QStringLiteral("dd.MM.yy"),
    QStringLiteral("MM/dd/yyyy hh:mm:ss AP"),
    QStringLiteral("MM/dd/yyyy hh:mm:ss"),
    QStringLiteral("dd.MM.yyyy hh:mm:ss AP"),
    QStringLiteral("dd.MM.yyyy hh:mm:ss"),
    QStringLiteral("dd.MM.yy hh:mm:ss AP"),
    QStringLiteral("dd.MM.yy hh:mm:ss"),
    QStringLiteral("MM/dd/yy hh:mm:ss AP"),
    QStringLiteral("MM/dd/yy hh:mm:ss"),
    QStringLiteral("MM/dd/yyyy h:mm:ss AP"),
    QStringLiteral("MM/dd/yyyy h:mm:ss"),
    QStringLiteral("dd.MM.yyyy h:mm:ss AP"),
    QStringLiteral("dd.MM.yyyy h:mm:ss"),
    QStringLiteral("dd.MM.yy h:mm:ss AP"),
    QStringLiteral("dd.MM.yy h:mm:ss"),
    QStringLiteral("dd-MM-yyyy h:mm:ss AP"),
    QStringLiteral("dd-MM-yyyy h:mm:ss"),
    QStringLiteral("dd-MM-yy h:mm:ss AP"),
    QStringLiteral("dd-MM-yy h:mm:ss"),
    QStringLiteral("MM-dd-yy hh:mm:ss AP"),
    QStringLiteral("MM-dd-yy hh:mm:ss"),
    QStringLiteral("MM-dd-yyyy h:mm:ss AP"),
    QStringLiteral("MM-dd-yyyy h:mm:ss"),
    QStringLiteral("MM/dd/yy h:mm:ss AP"),
    QStringLiteral("MM/dd/yy h:mm:ss"),
    QStringLiteral("MM.dd.yy hh:mm:ss"),
    QStringLiteral("MM.dd.yyyy hh:mm:ss"),
    QStringLiteral("yyyy/MM/dd hh:mm:ss"),
    QStringLiteral("yyyy/MM/dd hh:mm:ss AP"),
    QStringLiteral("yyyy/MM/dd h:mm:ss"),
};
QDir dir;
QString InitRecPath;
QString KRONALYS_VERSION;
QString App_lang;
qint32 AVAR_numPT_perTau = 1000000;
qint32 PRE_PLOTLEN = 2000;
qint32 DYN_PLOTLEN = 4000;
double freqRef = 5.0;
qint32 CompType = 315;
double phKoefUser = -1e-06;
bool updateTheProgram = true;
bool LOG = false;
bool removeF0Vals = false;
bool REMX_0 = false;
bool SLEEP = false;
quint8 lastUsedDevID = 0;
bool Reopening = false;
bool AcceptScheduleEvents = false;
qint32 BUGloveer = 0, FOxalc = 0, bag = 0;
WarnDiag* diag = nullptr;
KdecLoadDlg* KdecSelForm = nullptr;
