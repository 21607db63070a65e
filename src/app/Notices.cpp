// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/Notices.h"

#include "base/BaseFolders.h"
#include "base/DesktopNotification.h"
#include "base/HelperFolder.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/ConfigManager.h"
#include "config/ResourceBundle.h"
#include "platform/Platform.h"
#include "windows/ApplicationIcon.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QSize iconSize(64, 64);

/// What the user has been told already is kept in small files of the state folder.
bool wasTold(const QString &name, const QByteArray &text)
{
    constexpr qint64 maxText = 64 << 10;
    QFile told(BaseFolders::state() + u'/' + name);
    return told.open(QIODevice::ReadOnly) && told.read(maxText) == text;
}

void setTold(const QString &name, const QByteArray &text)
{
    QFile told(BaseFolders::state() + u'/' + name);
    if (QDir().mkpath(BaseFolders::state()) && told.open(QIODevice::WriteOnly))
        told.write(text);
}

const auto sessionNotice = u"session-notice"_s;
const auto welcomeNotice = u"welcome"_s;

DesktopNotification welcomeNotification(const FirstStart &facts)
{
    QStringList lines;
    if (facts.route == TriggerRoute::unbound) {
        lines += localized(u"Bind a key to \"tessel --trigger\" in the settings of the desktop, "
                           "then select text in any application and press it."_s);
        if (!facts.binding.isEmpty())
            lines += facts.binding;
    } else {
        lines += localized(u"Select text in any application, then press %1."_s).arg(facts.trigger);
    }
    if (!facts.isInTray)
        lines += localized(
            u"This desktop has no tray: to change the settings, start Tessel once more."_s);
    return { .text = lines.join(u'\n'),
             .title = localized(u"Tessel is ready"_s),
             .topic = u"welcome"_s,
             .preferences = localized(u"Preferences"_s) };
}

}

void Notices::notify(const DesktopNotification &notification)
{
    m_notifier.run(notificationCommand(notification, helperFolder()),
                   [this, notification](const Result<CommandResult> &shown) {
                       if (shown && shown->exitStatus == 0)
                           return;
                       Log::print(u"ERROR: "_s
                                  + (shown ? QString::fromUtf8(shown->errorOutput).trimmed()
                                           : shown.error().reason));
                       if (!notification.preferences.isEmpty())
                           welcomeInWindow(notification);
                   });
}

void Notices::warn(const QString &text)
{
    window(text)->show();
}

void Notices::tellOnce(const DesktopSetup &notice)
{
    if (wasTold(sessionNotice, notice.text.toUtf8()))
        return;
    QMessageBox *box = window(notice.text);
    QAbstractButton *setUp
        = notice.run ? box->addButton(notice.button, QMessageBox::AcceptRole) : nullptr;
    connect(box, &QMessageBox::finished, this, [this, box, setUp, notice] {
        if (setUp && box->clickedButton() == setUp) {
            notice.run().then(this, [this](const QString &result) {
                if (!result.isEmpty())
                    tellOnce({ result });
            });
        } else {
            setTold(sessionNotice, notice.text.toUtf8());
        }
    });
    box->show();
}

void Notices::welcome(const FirstStart &facts)
{
    if (wasTold(welcomeNotice, {}))
        return;
    setTold(welcomeNotice, {});
    notify(welcomeNotification(facts));
}

void Notices::welcomeInWindow(const DesktopNotification &notification)
{
    QMessageBox *box = window(notification.title + u"\n\n"_s + notification.text);
    const QAbstractButton *preferences
        = box->addButton(notification.preferences, QMessageBox::AcceptRole);
    connect(box, &QMessageBox::finished, this, [this, box, preferences] {
        if (box->clickedButton() == preferences)
            Q_EMIT preferencesRequested();
    });
    box->show();
}

/// It may come while the user types.
QMessageBox *Notices::window(const QString &text)
{
    const AppIconType icon = ConfigManager::shared().appIcon;
    const ResourceBundle &bundle = ResourceBundle::module();
    applyApplicationIcon(icon, bundle);
    // The bar is the window that is called after the program alone.
    auto *box = new QMessageBox(QMessageBox::NoIcon, localized(u"Tessel Notice"_s), text,
                                QMessageBox::Close);
    box->setIconPixmap(QPixmap::fromImage(
        applicationArtwork(icon, bundle, iconSize, 1, box->devicePixelRatioF())));
    box->setWindowFlag(Qt::WindowStaysOnTopHint); // the settings are
    box->setAttribute(Qt::WA_ShowWithoutActivating);
    box->setTextFormat(Qt::PlainText);
    box->button(QMessageBox::Close)->setText(localized(u"Close"_s));
    box->setDefaultButton(QMessageBox::Close);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    return box;
}

}
