// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Log.h"
#include "files/Files.h"
#include "settings/ActionsModel.h"
#include "settings/ActionsTableView.h"
#include "settings/RowTextView.h"
#include "settings/SettingsWindowController.h"
#include "widget/PanelFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>

namespace Tessel {

/// The settings window on a configuration of its own.
struct SettingsFixture : PanelFixture
{
    LocalizationManager texts { QStringLiteral(TESSEL_BUNDLE "/Localizations") };
    std::unique_ptr<SettingsWindowController> window;

    SettingsFixture() { open(); }

    void open()
    {
        window = std::make_unique<SettingsWindowController>(SettingsDependencies {
            config, texts, notifications, bundle, icons, platform.workspace(),
            platform.eventMonitor(), platform.popupHost() });
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->showWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    void showActions() const { window->findChild<QTabBar *>()->setCurrentIndex(1); }

    /// Opens the window anew, on actions of that type with these templates.
    void openWith(ActionType type, const QStringList &templates)
    {
        config.customActions.clear();
        for (const QString &text : templates)
            config.customActions.append(
                { text, text, QStringLiteral("phosphor_star"), type, text });
        open();
        showActions();
    }

    /// A control of the current contents: what a rebuild has thrown away may still be there.
    template <typename Control> [[nodiscard]] Control *control(const QString &name) const
    {
        for (Control *candidate : window->findChildren<Control *>()) {
            if (candidate->isVisible() && candidate->accessibleName() == name)
                return candidate;
        }
        return nullptr;
    }

    [[nodiscard]] ActionsTableView &table() const
    {
        return *window->findChild<ActionsTableView *>();
    }
    [[nodiscard]] QPoint cell(int row, int column) const
    {
        return table().visualRect(table().model()->index(row, column)).center();
    }
    void click(int row, int column) const
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, cell(row, column));
    }
    void doubleClick(int row, int column) const
    {
        click(row, column);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, cell(row, column));
    }
    [[nodiscard]] RowTextView *scriptEditor() const { return window->findChild<RowTextView *>(); }

    /// Opens the editor of a script; null when it does not get the keyboard.
    [[nodiscard]] RowTextView *editScript(int row) const
    {
        doubleClick(row, ActionsModel::templateColumn);
        const auto hasFocus = [this] { return scriptEditor() && scriptEditor()->hasFocus(); };
        return QTest::qWaitFor(hasFocus) ? scriptEditor() : nullptr;
    }

    /// Types into the single-line field of a cell.
    void type(int row, int column, const QString &text) const
    {
        doubleClick(row, column);
        auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(field);
        field->setText(text);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(QApplication::focusWidget() != field); // the end of an edit is queued
    }

    /// Picks an entry of the menu that is open.
    static void pick(const QString &entry)
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (qsizetype i = 0; i <= menu->actions().size(); ++i) {
            if (menu->activeAction() && menu->activeAction()->text() == entry)
                break;
            QTest::keyClick(menu, Qt::Key_Down);
        }
        QCOMPARE(menu->activeAction()->text(), entry);
        QTest::keyClick(menu, Qt::Key_Return);
        QVERIFY(!menu->isVisible());
    }

    /// The list as it is on the disk.
    [[nodiscard]] AppConfig saved() const
    {
        return decodeConfig(readFile(folder.filePath(QStringLiteral("GlintClone/config.json"))))
            .valueOr({});
    }
    [[nodiscard]] ActionConfig saved(int row) const { return saved().customActions.value(row); }
};

}
