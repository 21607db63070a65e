// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/GeneralSettingsViewController.h"

#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/ConfigManager.h"
#include "config/IconResolver.h"
#include "config/NotificationCenter.h"
#include "platform/EventMonitor.h"
#include "settings/AccessibleCells.h"
#include "settings/ApplicationChooser.h"
#include "settings/CellField.h"
#include "settings/ExcludedAppsModel.h"
#include "settings/IconSelectionButton.h"
#include "settings/SegmentedControl.h"
#include "settings/SettingsLayout.h"
#include "settings/SettingsSwitch.h"
#include "settings/ShortcutRecorderControl.h"
#include "windows/ApplicationIcon.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace Tessel {

using namespace SettingsLayout;

namespace {

constexpr QSize artworkSize(64, 64);
constexpr double artworkShare = 0.85;

/// Leaves the wheel to the page, which else could not be scrolled without changing a setting.
class PopUpButton final : public QComboBox
{
protected:
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }
};

/// A key of the table of texts; empty when there is nothing to say.
const char *noticeOf(TriggerRoute route)
{
    switch (route) {
    case TriggerRoute::shared:
        return "Another program uses this key too: it also gets the key press.";
    case TriggerRoute::lost:
        return "Applications do not get this key while Tessel is running.";
    case TriggerRoute::unbound:
        return "This desktop does not pass keys to Tessel. Bind one to \"tessel --trigger\" in its "
               "settings.";
    case TriggerRoute::kept:
        break;
    }
    return "";
}

/// What is to be copied into another program.
QLabel *selectableLine()
{
    QLabel *line = label({}, FontSize::note);
    line->setFont(sized(QFontDatabase::systemFont(QFontDatabase::FixedFont), FontSize::note));
    line->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    line->setWordWrap(true);
    return line;
}

/// Edits an excluded application.
class EntryDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &,
                          const QModelIndex &index) const override
    {
        auto *field = new CellField(parent);
        field->setAccessibleName(index.model()->headerData(0, Qt::Horizontal).toString());
        return field;
    }
};

}

GeneralSettingsViewController::GeneralSettingsViewController(SettingsDependencies dependencies,
                                                             QWidget *parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
{
    stack(this, Qt::Vertical, 0);
    setupUI();
    connect(&dependencies.notifications, &NotificationCenter::languageDidChange, this,
            &GeneralSettingsViewController::reloadUI);
}

void GeneralSettingsViewController::setupUI()
{
    auto *content = new QWidget;
    QBoxLayout *column = stack(content, Qt::Vertical, 30);
    column->setContentsMargins(30, 24, 30, 30);
    for (QWidget *section : { appearanceSection(), behaviorSection(), exclusionSection() })
        column->addWidget(section);
    column->addStretch();

    m_scrollArea = scrolled(content);
    layout()->addWidget(m_scrollArea);
}

/// Everything is made anew, so that no text can be left in the old language.
void GeneralSettingsViewController::reloadUI()
{
    const int position = m_scrollArea->verticalScrollBar()->value();
    const bool hadFocus = m_languageButton->hasFocus();
    m_iconButtons.clear();
    m_scrollArea->hide();
    layout()->removeWidget(m_scrollArea);
    m_scrollArea->deleteLater(); // it may hold the control that brought us here
    setupUI();
    m_scrollArea->show();
    m_scrollArea->verticalScrollBar()->setValue(position);
    if (hadFocus)
        m_languageButton->setFocus(Qt::OtherFocusReason);
}

QString GeneralSettingsViewController::text(const char *key) const
{
    return m_dependencies.localization.localizedString(QString::fromLatin1(key));
}

QWidget *GeneralSettingsViewController::appearanceSection()
{
    auto *rows = new QWidget;
    QBoxLayout *row = stack(rows, Qt::Horizontal, 40);
    for (QWidget *part : { languageRow(), themeRow() }) {
        part->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
        row->addWidget(part);
    }
    row->addStretch();
    return section(text("Appearance"),
                   { rows, separator(), label(text("App Icon"), FontSize::text, QFont::DemiBold),
                     iconGrid(), separator() });
}

QWidget *GeneralSettingsViewController::languageRow()
{
    const LocalizationManager &texts = m_dependencies.localization;
    m_languageButton = new PopUpButton;
    m_languageButton->setAccessibleName(text("Language"));
    for (const LocalizationManager::Language &language : texts.languages())
        m_languageButton->addItem(language.name, language.code);
    m_languageButton->addItem(text("System"), u"system"_s);
    const QString &configured = m_dependencies.config.language;
    const bool isFollowed = texts.languageFrom(configured) == texts.currentLanguage;
    m_languageButton->setCurrentIndex(
        m_languageButton->findData(isFollowed ? configured : texts.currentLanguage));
    connect(m_languageButton, &QComboBox::activated, this,
            [this] { changeLanguage(m_languageButton->currentData().toString()); });
    return row(10, { labelOf(m_languageButton, text("Language:")), m_languageButton });
}

QWidget *GeneralSettingsViewController::themeRow()
{
    auto *button = new PopUpButton;
    button->setAccessibleName(text("Theme"));
    for (const Choice<ThemeMode> &choice : choices<ThemeMode>) {
        button->addItem(m_dependencies.localization.localizedString(choice.title.toString()));
        if (choice.value == m_dependencies.config.themeMode)
            button->setCurrentIndex(button->count() - 1);
    }
    connect(button, &QComboBox::activated, this, [&config = m_dependencies.config](int index) {
        config.themeMode = choices<ThemeMode>[std::size_t(index)].value;
        config.save();
    });
    return row(10, { labelOf(button, text("Theme:")), button });
}

QWidget *GeneralSettingsViewController::iconGrid()
{
    auto *grid = new QWidget;
    auto *columns = new QGridLayout(grid);
    columns->setContentsMargins({});
    columns->setHorizontalSpacing(20);
    columns->setVerticalSpacing(4);
    for (const Choice<AppIconType> &choice : choices<AppIconType>) {
        const QString title = m_dependencies.localization.localizedString(choice.title.toString());
        auto *button = new IconSelectionButton;
        button->setAccessibleName(title);
        button->setAccessibleDescription(text("App Icon")); // of which there are several
        button->setPicture(QPixmap::fromImage(applicationArtwork(
            choice.value, m_dependencies.bundle, artworkSize, artworkShare, devicePixelRatioF())));
        button->setSelectedIcon(choice.value == m_dependencies.config.appIcon);
        connect(button, &QAbstractButton::clicked, this,
                [this, type = choice.value] { changeAppIcon(type); });
        m_iconButtons.insert(choice.value, button);
        const int column = columns->columnCount();
        columns->addWidget(button, 0, column, Qt::AlignHCenter);
        columns->addWidget(secondaryLabel(title, FontSize::caption), 1, column, Qt::AlignHCenter);
    }
    columns->setColumnStretch(columns->columnCount(), 1);
    return grid;
}

QWidget *GeneralSettingsViewController::behaviorSection()
{
    ConfigManager &config = m_dependencies.config;
    auto *switches = new QWidget;
    QBoxLayout *column = stack(switches, Qt::Vertical, 12);
    const auto addSwitch = [&config, column](const QString &title, auto AppConfig::*setting) {
        auto *control = new SettingsSwitch;
        control->setAccessibleName(title);
        control->setChecked(config.*setting);
        connect(control, &QAbstractButton::toggled, control, [&config, setting](bool isOn) {
            config.*setting = isOn;
            config.save();
        });
        column->addWidget(row(12, { control, labelOf(control, title) }));
        return control;
    };
    addSwitch(text("Show Tooltips"), &AppConfig::showTooltips);
    addSwitch(text("Show Keyboard Shortcuts"), &AppConfig::showKeyboardShortcuts);
    connect(addSwitch(text("Keep Settings Window on Top"), &AppConfig::alwaysOnTop),
            &QAbstractButton::toggled, this, &GeneralSettingsViewController::alwaysOnTopChanged);
    return section(text("Behavior"), { triggerRow(), switches, separator() });
}

QWidget *GeneralSettingsViewController::triggerRow()
{
    ConfigManager &config = m_dependencies.config;
    auto *recorder = new ShortcutRecorderControl(config.triggerKeyCode, config.triggerModifiers);
    recorder->setAccessibleName(text("Trigger Shortcut"));
    recorder->onShortcutChanged = [&config](qint64 keyCode, qint64 modifierFlags) {
        config.triggerKeyCode = keyCode;
        config.triggerModifiers = modifierFlags;
        config.save();
    };
    m_triggerNotice = secondaryLabel({}, FontSize::note);
    m_triggerNotice->setWordWrap(true);
    m_triggerBinding = selectableLine();
    auto *rows = new QWidget;
    QBoxLayout *column = stack(rows, Qt::Vertical, 6);
    column->addWidget(row(10, { labelOf(recorder, text("Trigger Shortcut:")), recorder }));
    column->addWidget(m_triggerNotice);
    column->addWidget(m_triggerBinding);
    showTriggerNotice();
    connect(&m_dependencies.eventMonitor, &EventMonitor::triggerRouteChanged, m_triggerNotice,
            [this] { showTriggerNotice(); });
    return rows;
}

void GeneralSettingsViewController::showTriggerNotice()
{
    const EventMonitor &monitor = m_dependencies.eventMonitor;
    const QString notice = text(noticeOf(monitor.triggerRoute()));
    m_triggerNotice->setText(notice);
    m_triggerNotice->setHidden(notice.isEmpty());
    m_triggerBinding->setText(monitor.triggerBinding());
    m_triggerBinding->setHidden(monitor.triggerRoute() != TriggerRoute::unbound
                                || m_triggerBinding->text().isEmpty());
}

QWidget *GeneralSettingsViewController::exclusionSection()
{
    auto *control = new SegmentedControl;
    const IconResolver &icons = m_dependencies.icons;
    control->addSegment(icons.image(u"plus"_s), text("Add"), text("Add App"));
    control->addSegment(icons.image(u"minus"_s), text("Remove"), text("Remove App"));
    connect(control, &SegmentedControl::triggered, this,
            &GeneralSettingsViewController::handleExcludedAppsAction);
    QWidget *table = excludedAppsTable();
    QLabel *title = label(text("Excluded Apps"), FontSize::text, QFont::DemiBold);
    title->setBuddy(table);
    return section(text("Exclusion"), { title, table, control });
}

QWidget *GeneralSettingsViewController::excludedAppsTable()
{
    m_tableView = new QTableView;
    m_excludedApps = new ExcludedAppsModel(m_dependencies.config, text("Bundle ID"), m_tableView);
    m_tableView->setModel(m_excludedApps);
    m_tableView->setItemDelegate(new EntryDelegate(m_tableView));
    m_tableView->setMaximumWidth(500); // less in a narrow window
    m_tableView->setFixedHeight(160);
    m_tableView->setAccessibleName(text("Excluded Apps"));
    AccessibleCells::readOnFocus(m_tableView);
    m_tableView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tableView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tableView->setEditTriggers(QAbstractItemView::DoubleClicked
                                 | QAbstractItemView::SelectedClicked
                                 | QAbstractItemView::EditKeyPressed);
    m_tableView->setTabKeyNavigation(false);
    m_tableView->setShowGrid(false);
    m_tableView->setAlternatingRowColors(true);
    m_tableView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_tableView->horizontalHeader()->setHighlightSections(false);
    m_tableView->verticalHeader()->hide();
    m_tableView->verticalHeader()->setDefaultSectionSize(roomFor(24));
    auto *edit = new QShortcut(Qt::Key_Return, m_tableView);
    edit->setContext(Qt::WidgetShortcut);
    connect(edit, &QShortcut::activated, m_tableView,
            [this] { m_tableView->edit(m_tableView->currentIndex()); });
    connect(&m_dependencies.notifications, &NotificationCenter::configDidChange, m_excludedApps,
            &ExcludedAppsModel::refresh);
    return m_tableView;
}

void GeneralSettingsViewController::changeLanguage(const QString &code)
{
    const auto language = m_dependencies.localization.languageFrom(code);
    if (!language)
        return;
    ConfigManager &config = m_dependencies.config;
    config.save(); // what listens to the save still speaks the old language
    m_dependencies.localization.currentLanguage = *language;
    config.language = code;
    Q_EMIT m_dependencies.notifications.languageDidChange();
    config.save();
}

void GeneralSettingsViewController::changeAppIcon(AppIconType type)
{
    m_dependencies.config.appIcon = type;
    m_dependencies.config.save();
    applyApplicationIcon(type, m_dependencies.bundle);
}

void GeneralSettingsViewController::handleExcludedAppsAction(int segment)
{
    if (segment == 0)
        addExcludedApp();
    else if (const auto rows = m_tableView->selectionModel()->selectedRows(); !rows.isEmpty())
        m_excludedApps->remove(rows.first().row());
}

void GeneralSettingsViewController::addExcludedApp()
{
    auto *chooser = new ApplicationChooser(m_dependencies.workspace, m_dependencies.localization,
                                           m_dependencies.icons, window());
    connect(chooser, &ApplicationChooser::chosen, m_excludedApps, &ExcludedAppsModel::add);
    chooser->open();
}

void GeneralSettingsViewController::clearIconCache()
{
    Log::print(
        u"DEBUG: clearIconCache called - clearing %1 icon buttons"_s.arg(m_iconButtons.size()));
    for (IconSelectionButton *button : std::as_const(m_iconButtons))
        button->setPicture({});
    m_iconButtons.clear();
}

}
