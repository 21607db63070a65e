// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsSettingsViewController.h"

#include "base/LocalizationManager.h"
#include "config/NotificationCenter.h"
#include "settings/ActionsModel.h"
#include "settings/ActionsTableView.h"
#include "settings/IconPickerViewController.h"
#include "settings/SettingsLayout.h"

#include <QLabel>
#include <QPersistentModelIndex>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace Tessel {

using namespace SettingsLayout;

ActionsSettingsViewController::ActionsSettingsViewController(SettingsDependencies dependencies,
                                                             QWidget *parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_model(new ActionsModel(dependencies.config, dependencies.localization, dependencies.icons,
                               this))
    , m_tableView(new ActionsTableView(m_model, dependencies.icons))
    , m_title(label({}, FontSize::title, QFont::Bold))
    , m_hint(secondaryLabel(dependencies.localization.localizedString(
                                u"Use {text} as placeholder\nPress ⌘+Enter to save"_s),
                            FontSize::caption))
    , m_addButton(new QPushButton(u"+"_s))
    , m_removeButton(new QPushButton(u"-"_s))
    , m_resetButton(new QPushButton(dependencies.localization.localizedString(u"Reset Defaults"_s)))
{
    setupUI();
    connect(m_tableView, &ActionsTableView::iconPickerRequested, this,
            &ActionsSettingsViewController::showIconPicker);
    connect(&dependencies.notifications, &NotificationCenter::languageDidChange, this,
            &ActionsSettingsViewController::reloadUI);
}

void ActionsSettingsViewController::setupUI()
{
    describe();
    m_title->setBuddy(m_tableView);
    m_addButton->setFixedWidth(30);
    m_removeButton->setFixedWidth(30);
    connect(m_addButton, &QPushButton::clicked, this, &ActionsSettingsViewController::addAction);
    connect(m_removeButton, &QPushButton::clicked, this, [this] {
        m_tableView->endEditing();
        if (const auto row = m_tableView->selectedRow())
            m_model->remove(*row);
    });
    connect(m_resetButton, &QPushButton::clicked, this, [this] {
        m_tableView->endEditing();
        m_model->resetToDefaults();
    });
    // While this page is shown, wherever the focus is; text fields have the key for themselves.
    for (const Qt::Modifier command : { Qt::CTRL, Qt::META }) {
        connect(new QShortcut(command | Qt::Key_Z, this), &QShortcut::activated, this,
                &ActionsSettingsViewController::undo);
    }

    auto *buttons = new QWidget;
    QBoxLayout *row = stack(buttons, Qt::Horizontal, 10);
    row->addWidget(m_addButton);
    row->addWidget(m_removeButton);
    row->addWidget(m_hint);
    row->addStretch();
    row->addWidget(m_resetButton);
    auto *content = new QWidget;
    QBoxLayout *column = stack(content, Qt::Vertical, 10);
    column->setContentsMargins(20, 20, 20, 20);
    column->addWidget(m_title);
    column->addWidget(m_tableView);
    column->addWidget(buttons);
    stack(this, Qt::Vertical, 0)->addWidget(scrolled(content));
}

/// The texts that stay the same, among them those for whoever does not see what "+" and the keys in
/// the table are for.
void ActionsSettingsViewController::describe()
{
    const LocalizationManager &texts = m_dependencies.localization;
    m_title->setText(texts.localizedString(u"Actions:"_s));
    m_hint->setToolTip(texts.localizedString(u"Ctrl+Enter or Esc saves a script"_s));
    m_tableView->setAccessibleName(texts.localizedString(u"Actions"_s));
    m_tableView->setAccessibleDescription(
        texts.localizedString(u"Space changes a cell, Alt with Up or Down moves the row"_s));
    const std::pair<QPushButton *, QString> buttons[]
        = { { m_addButton, u"Add Action"_s }, { m_removeButton, u"Remove Action"_s } };
    for (const auto &[button, key] : buttons) {
        button->setAccessibleName(texts.localizedString(key));
        button->setToolTip(texts.localizedString(key));
    }
    const QString undoHint = texts.localizedString(u"Ctrl+Z brings back what was removed"_s);
    m_removeButton->setToolTip(m_removeButton->toolTip() + u'\n' + undoHint);
    m_resetButton->setToolTip(undoHint);
}

void ActionsSettingsViewController::reloadUI()
{
    describe();
    const LocalizationManager &texts = m_dependencies.localization;
    m_model->relabel();
    m_hint->setText(texts.localizedString(u"Use {text} as placeholder"_s));
    m_resetButton->setText(texts.localizedString(u"Reset to Defaults"_s));
}

void ActionsSettingsViewController::addAction()
{
    m_tableView->endEditing();
    m_tableView->selectRow(m_model->append());
}

void ActionsSettingsViewController::undo()
{
    m_tableView->endEditing();
    if (const auto row = m_model->undo())
        m_tableView->selectRow(*row);
}

void ActionsSettingsViewController::showIconPicker(int row, const QRect &cell)
{
    auto *picker
        = new IconPickerViewController({ m_dependencies.config, m_dependencies.bundle,
                                         m_dependencies.icons, m_dependencies.localization },
                                       this);
    picker->setAccessibleName(m_dependencies.localization.localizedString(u"Icon"_s));
    m_iconPickerPopover = picker;
    connect(picker, &IconPickerViewController::didSelectIcon, this,
            [this, picker,
             index = QPersistentModelIndex(m_model->index(row, ActionsModel::iconColumn))](
                const QString &iconName) {
                m_model->setIcon(index.row(), iconName);
                picker->close();
            });
    m_iconPickerPopover->showBeside(
        QRect(m_tableView->viewport()->mapToGlobal(cell.topLeft()), cell.size()));
}

void ActionsSettingsViewController::cleanup()
{
    m_tableView->endEditing();
    if (m_iconPickerPopover) {
        m_iconPickerPopover->close();
        m_iconPickerPopover->cleanup();
    }
    m_tableView->setModel(nullptr);
}

}
