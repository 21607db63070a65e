// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/SettingsWindowController.h"

#include "base/FileLogger.h"
#include "base/LocalizationManager.h"
#include "config/ConfigManager.h"
#include "config/IconResolver.h"
#include "config/NotificationCenter.h"
#include "platform/PopupHost.h"
#include "platform/Workspace.h"
#include "settings/ActionsSettingsViewController.h"
#include "settings/GeneralSettingsViewController.h"
#include "settings/SaveNotice.h"
#include "settings/SettingsLayout.h"
#include "settings/ToolbarTabBar.h"
#include "windows/ApplicationIcon.h"
#include "windows/Theme.h"
#include "windows/WindowCommands.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// Below the tabs, at first and at least.
QSize pagesSize()
{
    return { roomFor(810), roomFor(450) };
}

}

SettingsWindowController::SettingsWindowController(SettingsDependencies dependencies)
    : m_dependencies(dependencies)
    , m_header(new QWidget)
    , m_tabs(new ToolbarTabBar)
    , m_saveNotice(new SaveNotice(dependencies.config, dependencies.localization, this))
{
    FileLogger::log(u"DEBUG: SettingsWindowController init called"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(sized(font(), FontSize::text));
    setFloating(dependencies.config.alwaysOnTop);
    addWindowCommands(this);
    FileLogger::log(u"DEBUG: Window created"_s);
    setupTabs();
    languageChanged();
    FileLogger::log(u"DEBUG: SettingsWindowController setup complete"_s);
    connect(&dependencies.notifications, &NotificationCenter::languageDidChange, this,
            &SettingsWindowController::languageChanged);
}

void SettingsWindowController::setupTabs()
{
    const IconResolver &icons = m_dependencies.icons;
    auto *pages = new QStackedWidget;
    FileLogger::log(u"DEBUG: Creating General Settings VC"_s);
    m_general = new GeneralSettingsViewController(m_dependencies);
    pages->addWidget(m_general);
    m_tabs->addTab(icons.image(u"gear"_s));
    FileLogger::log(u"DEBUG: Creating Actions Settings VC"_s);
    m_actions = new ActionsSettingsViewController(m_dependencies);
    pages->addWidget(m_actions);
    m_tabs->addTab(icons.image(u"star"_s));
    connect(m_tabs, &QTabBar::currentChanged, pages, &QStackedWidget::setCurrentIndex);
    connect(m_general, &GeneralSettingsViewController::alwaysOnTopChanged, this,
            &SettingsWindowController::setFloating);

    // Qt 6.4's own sequence for the previous tab, with "Backtab", never matches under X11.
    for (const auto keys : { Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::SHIFT | Qt::Key_Tab }) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this] { m_tabs->setCurrentIndex(1 - m_tabs->currentIndex()); });
    }

    QBoxLayout *header = SettingsLayout::stack(m_header, Qt::Vertical, 0);
    header->addSpacing(4);
    header->addWidget(m_tabs, 0, Qt::AlignHCenter);
    header->addSpacing(4);
    header->addWidget(SettingsLayout::separator());
    auto *content = new QWidget;
    QBoxLayout *column = SettingsLayout::stack(content, Qt::Vertical, 0);
    column->addWidget(m_header);
    column->addWidget(pages, 1);
    column->addWidget(m_saveNotice);
    setCentralWidget(content);
    setFocusPolicy(Qt::ClickFocus); // a click beside the controls ends what they record
    setFocus(); // no control is marked before the keyboard is used
}

void SettingsWindowController::showWindow()
{
    applyApplicationIcon(m_dependencies.config.appIcon, m_dependencies.bundle);
    if (isVisible()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
        m_dependencies.workspace.bringToFront(winId());
        return;
    }
    m_dependencies.popupHost.locate().then(this, [this](const PopupLocation &location) {
        const QScreen *pointed = QGuiApplication::screenAt(location.pointer);
        const QScreen &userScreen = pointed ? *pointed : *screen();
        fitInto(userScreen);
        resize(minimumSize());
        move(userScreen.availableGeometry().center() - rect().center());
        show();
        connect(windowHandle(), &QWindow::screenChanged, this, [this](const QScreen *screen) {
            if (screen) // none when the last one is unplugged
                fitInto(*screen);
        });
        raise();
        activateWindow();
    });
}

/// Only where the work area is smaller may the window be, too.
void SettingsWindowController::fitInto(const QScreen &screen)
{
    const QSize preferred = pagesSize() + QSize(0, m_header->sizeHint().height());
    setMinimumSize(SettingsLayout::fitted(preferred, screen.availableSize()));
}

void SettingsWindowController::setFloating(bool isFloating)
{
    Qt::WindowFlags flags = windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, isFloating);
    overrideWindowFlags(flags); // setting them would hide the window
    if (windowHandle())
        windowHandle()->setFlags(flags);
}

void SettingsWindowController::languageChanged()
{
    const LocalizationManager &texts = m_dependencies.localization;
    setWindowTitle(texts.localizedString(u"Tessel Preferences"_s));
    m_tabs->setTabText(0, texts.localizedString(u"General"_s));
    m_tabs->setTabText(1, texts.localizedString(u"Actions"_s));
    m_saveNotice->refresh();
}

void SettingsWindowController::closeEvent(QCloseEvent *event)
{
    windowWillClose();
    QMainWindow::closeEvent(event);
}

void SettingsWindowController::windowWillClose()
{
    FileLogger::log(u"DEBUG: windowWillClose - starting cleanup"_s);
    if (QWidget *field = focusWidget())
        field->clearFocus(); // stores what is being typed
    m_general->clearIconCache();
    m_actions->cleanup();
    FileLogger::log(u"DEBUG: windowWillClose - cleanup complete, calling onClose"_s);
    if (const auto callback = std::exchange(onClose, {}))
        callback();
}

}
