// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsSettingsViewController.h"

#include "config/LocalizationManager.h"
#include "config/NotificationCenter.h"
#include "settings/ActionsModel.h"
#include "settings/ActionsTableView.h"
#include "settings/IconPickerViewController.h"
#include "settings/SettingsLayout.h"

#include <QLabel>
#include <QPersistentModelIndex>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace Tessel {

using namespace SettingsLayout;

namespace {

const QString savingHint = u"Ctrl+Enter or Esc saves a script"_s;

}

ActionsSettingsViewController::ActionsSettingsViewController(SettingsDependencies dependencies,
                                                             QWidget *parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_model(new ActionsModel(dependencies.config, dependencies.localization, dependencies.icons,
                               this))
    , m_tableView(new ActionsTableView(m_model, dependencies.icons))
    , m_title(label(u"Actions:"_s, FontSize::title, QFont::Bold))
    , m_hint(
          secondaryLabel(u"Use {text} as placeholder\nPress ⌘+Enter to save"_s, FontSize::caption))
    , m_resetButton(new QPushButton(u"Reset Defaults"_s))
{
    setupUI();
    connect(m_tableView, &ActionsTableView::iconPickerRequested, this,
            &ActionsSettingsViewController::showIconPicker);
    connect(&dependencies.notifications, &NotificationCenter::languageDidChange, this,
            &ActionsSettingsViewController::reloadUI);
}

void ActionsSettingsViewController::setupUI()
{
    const LocalizationManager &texts = m_dependencies.localization;
    m_tableView->setAccessibleName(u"Actions"_s);
    m_hint->setToolTip(texts.localizedString(savingHint));
    auto *addButton = new QPushButton(u"+"_s);
    addButton->setAccessibleName(u"Add Action"_s);
    addButton->setFixedWidth(30);
    auto *removeButton = new QPushButton(u"-"_s);
    removeButton->setAccessibleName(u"Remove Action"_s);
    removeButton->setFixedWidth(30);
    connect(addButton, &QPushButton::clicked, this, &ActionsSettingsViewController::addAction);
    connect(removeButton, &QPushButton::clicked, this, [this] {
        m_tableView->endEditing();
        if (const auto row = m_tableView->selectedRow())
            m_model->remove(*row);
    });
    connect(m_resetButton, &QPushButton::clicked, this, [this] {
        m_tableView->endEditing();
        m_model->resetToDefaults();
    });

    auto *buttons = new QWidget;
    QBoxLayout *row = stack(buttons, Qt::Horizontal, 10);
    for (QWidget *widget : { static_cast<QWidget *>(addButton),
                             static_cast<QWidget *>(removeButton), static_cast<QWidget *>(m_hint) })
        row->addWidget(widget);
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

void ActionsSettingsViewController::reloadUI()
{
    const LocalizationManager &texts = m_dependencies.localization;
    m_model->relabel();
    m_hint->setText(texts.localizedString(u"Use {text} as placeholder"_s));
    m_hint->setToolTip(texts.localizedString(savingHint));
    m_title->setText(texts.localizedString(u"Actions"_s) + u':');
    m_resetButton->setText(texts.localizedString(u"Reset to Defaults"_s));
}

void ActionsSettingsViewController::addAction()
{
    m_tableView->endEditing();
    m_tableView->selectRow(m_model->append());
}

void ActionsSettingsViewController::showIconPicker(int row, const QRect &cell)
{
    auto *picker
        = new IconPickerViewController({ m_dependencies.config, m_dependencies.bundle,
                                         m_dependencies.icons, m_dependencies.localization },
                                       this);
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
