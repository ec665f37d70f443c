#pragma once

#include "base/globals.h"
#include "load/core/recentrecs.h"
#include "load/core/winprop.h"
#include "load/openfileglobform.h"
#include "record/record.h"
#include "support/scopedhome.h"
#include "support/scopedprompts.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QtTest>

/// The loading dialog without recent records, and what it sends, as a receiver that empties nothing sees it.
struct LoadingDialog {
    ScopedHome home;
    OpenGlobForm_winProp prop;
    OpenFileGlobForm form;
    QList<Record*> records;
    QSignalSpy allAdded{&form, &OpenFileGlobForm::AllRecsAdded};
    ScopedPrompts prompts;
    /// Records after which the table is full.
    int room = 32;

    LoadingDialog()
    {
        setRecentRecords({});
        Reopening = false;
        form.setProp(&prop);
        QObject::connect(&form, &OpenFileGlobForm::RecReady, [this](Record* rec) {
            if (records.size() < room)
                records << rec;
            else
                form.OnTableIsFull_RecLoadError(rec);
        });
    }

    template <typename Widget> Widget* get(const char* name)
    {
        auto* widget = form.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("no widget %s", name);
        return widget;
    }
    QLineEdit* field(const char* name) { return get<QLineEdit>(name); }
    void click(const char* button) { QTest::mouseClick(get<QAbstractButton>(button), Qt::LeftButton); }
    void forward() { click("Btn_ViewRecList"); }
    void open(const QByteArray& content) { form.openFile(home.write("data.txt", content)); }
    /// Closes the next dialog; `details` get the lines behind its link.
    void closeNext(QStringList* details)
    {
        prompts.handle([details](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>("More_list");
            for (int i = 0; i < list->count(); ++i)
                *details << list->item(i)->text();
            return int(QDialog::Rejected);
        });
    }
    QString said() const { return prompts.seen.isEmpty() ? QString() : prompts.seen.last().text; }
    QString status() { return get<QLabel>("StatusLbl")->text(); }
    /// Text of the head of a file that the dialog shows.
    QString preview(const char* name)
    {
        return get<QWidget>(name)->findChild<QWidget*>("preview_text")->property("plainText").toString();
    }
    QString legend(const char* name)
    {
        return get<QWidget>(name)->findChild<QLabel*>("preview_legend")->text();
    }
};
