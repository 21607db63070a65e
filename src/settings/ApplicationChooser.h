// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

namespace Tessel {

class IconResolver;
class LocalizationManager;
class Workspace;

/// Lets the user pick one of the installed applications, by its name or by its desktop file.
/// Deletes itself when closed.
class ApplicationChooser final : public QDialog
{
    Q_OBJECT

public:
    ApplicationChooser(Workspace &workspace, const LocalizationManager &localization,
                       const IconResolver &icons, QWidget *parent);

Q_SIGNALS:
    void chosen(const QString &bundleIdentifier);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setupControls();
    void acceptCurrent();
    void chooseFile();
    void selectFirst();

    Workspace &m_workspace;
    const LocalizationManager &m_texts;
    QLineEdit *m_searchField;
    QListView *m_list;
    QSortFilterProxyModel *m_filtered;
};

}
