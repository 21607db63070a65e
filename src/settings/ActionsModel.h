// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/ActionEditing.h"

#include <QAbstractTableModel>

#include <functional>

namespace Tessel {

class ConfigManager;
class IconResolver;
class LocalizationManager;

/// The actions of the configuration as a table. Each change is written into the configuration and
/// saved at once; what is typed is stored also when it cannot run, and flagged.
class ActionsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { enabledColumn, iconColumn, titleColumn, typeColumn, templateColumn, regexColumn };
    static constexpr int columns = 6;

    /// The Remark::Kind, as a number, of what there is to be said about a text; the tool tip says
    /// it.
    static constexpr int remarkRole = Qt::UserRole;
    /// What an empty field shows.
    static constexpr int placeholderRole = Qt::UserRole + 1;

    /// Borrows all three.
    ActionsModel(ConfigManager &config, const LocalizationManager &localization,
                 const IconResolver &icons, QObject *parent = nullptr);

    /// Null when there is no such row.
    [[nodiscard]] const ActionConfig *action(int row) const;

    /// What is to be said about a text if the field had it, in the current language.
    [[nodiscard]] std::optional<Remark> remark(const QModelIndex &field, const QString &text) const;

    // Rows that do not exist are passed over.
    void toggle(int row);
    void setType(int row, ActionType type);
    void setIcon(int row, const QString &iconName);
    void setTemplate(int row, const QString &text); ///< as it is, with its white space
    int append(); ///< gives the row of the new action
    void remove(int row);
    bool move(int source, int dropRow); ///< to the place before `dropRow`; false: refused
    void resetToDefaults();

    /// Takes back the last removal, or reset, that was not taken back yet. Gives the row to look
    /// at; nothing when there is none.
    std::optional<int> undo();

    /// Puts the headers into the current language.
    void relabel();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// Stores the text of a single-line field, without white space around it.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    template <typename Change> void change(int row, Change &&change);
    int insert(int row, const ActionConfig &action);
    int undoReset(const AppConfig &before, const QList<ActionConfig> &defaults);
    [[nodiscard]] QString shownText(const ActionConfig &action, int column) const;
    [[nodiscard]] std::optional<Remark> remark(const ActionConfig &action, int column) const;
    [[nodiscard]] QString spokenText(const QModelIndex &index) const;

    ConfigManager &m_config;
    const LocalizationManager &m_localization;
    const IconResolver &m_icons;
    QStringList m_headers;
    QList<std::function<int()>> m_undo; ///< each gives the row
};

}
