// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/CommandRunner.h"

#include <QWidget>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

namespace Tessel {

class ConfigManager;
class IconResolver;
class LocalizationManager;
class ResourceBundle;

/// Lets the user choose an icon of the icon set, or an image file of their own. A popup that a
/// click elsewhere closes; deletes itself then.
class IconPickerViewController final : public QWidget
{
    Q_OBJECT

public:
    struct Dependencies
    {
        const ConfigManager &config;
        const ResourceBundle &bundle;
        const IconResolver &icons;
        const LocalizationManager &localization;
    };

    explicit IconPickerViewController(Dependencies dependencies, QWidget *parent = nullptr);

    /// Opens below the area, or where there is room beside it, given in global coordinates.
    void showBeside(const QRect &area);

    /// Copies an image file to the user's icons, announces it and deletes the picker. A file that
    /// cannot be copied changes nothing. One that cannot be shown is told to the user.
    void importIcon(const QString &path);

    /// Empties the grid; for a picker that is about to go.
    void cleanup();

Q_SIGNALS:
    /// A name of the icon set or a "custom:" name. Comes from the event loop, after the click.
    void didSelectIcon(const QString &iconName);

protected:
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setupControls();
    void choose(const QString &iconName);
    void chooseFile();
    void makeRendition(const QString &iconName, const QString &copy, const QString &fileName);
    void tell(const QString &reason, const QString &fileName);

    Dependencies m_dependencies;
    QSortFilterProxyModel *m_filteredIcons;
    QLineEdit *m_searchField;
    QListView *m_collectionView;
    CommandRunner m_importer;
    bool m_isImporting = false;
};

}
