// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ApplicationChooser.h"

#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/IconResolver.h"
#include "config/ImageFile.h"
#include "config/TemplateImage.h"
#include "platform/Workspace.h"
#include "settings/AccessibleCells.h"
#include "settings/SettingsLayout.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHash>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int iconExtent = 24;
constexpr int identifierRole = Qt::UserRole;
constexpr int searchRole = Qt::UserRole + 1;

/// The applications; icons are loaded for what is shown.
class Applications final : public QAbstractListModel
{
public:
    /// `fallback`: the picture of those that have none.
    Applications(QList<InstalledApplication> applications, QPixmap fallback, QObject *parent)
        : QAbstractListModel(parent)
        , m_applications(std::move(applications))
        , m_fallback(std::move(fallback))
    {
    }

    [[nodiscard]] int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : int(m_applications.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        const InstalledApplication &application = m_applications[index.row()];
        const QString &identifier = application.bundleIdentifier;
        const QString &name = application.localizedName;
        switch (role) {
        case Qt::DisplayRole:
            return name.isEmpty() ? identifier : name;
        case Qt::ToolTipRole:
        case identifierRole:
            return identifier;
        case searchRole:
            return name + u'\n' + identifier;
        case Qt::DecorationRole:
            return icon(application.icon);
        default:
            return {};
        }
    }

private:
    /// Section "Icon" of the Desktop Entry Specification: a path or a name in the icon theme. All
    /// have one size, so that the names stand below each other.
    [[nodiscard]] QPixmap icon(const QString &nameOrPath) const
    {
        QPixmap &picture = m_pictures[nameOrPath];
        if (!picture.isNull())
            return picture;
        const QIcon icon = nameOrPath.startsWith(u'/') ? QIcon(QPixmap::fromImage(
                               readImageFile(nameOrPath, iconExtent * 2, ImageFormats::all)))
                                                       : QIcon::fromTheme(nameOrPath);
        if (icon.pixmap(iconExtent).isNull())
            return picture = m_fallback;
        picture = QPixmap(m_fallback.size());
        picture.setDevicePixelRatio(m_fallback.devicePixelRatio());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        icon.paint(&painter, 0, 0, iconExtent, iconExtent);
        return picture;
    }

    QList<InstalledApplication> m_applications;
    QPixmap m_fallback;
    mutable QHash<QString, QPixmap> m_pictures;
};

}

ApplicationChooser::ApplicationChooser(Workspace &workspace,
                                       const LocalizationManager &localization,
                                       const IconResolver &icons, QWidget *parent)
    : QDialog(parent)
    , m_workspace(workspace)
    , m_texts(localization)
    , m_searchField(new QLineEdit)
    , m_list(new QListView)
    , m_filtered(new QSortFilterProxyModel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(localization.localizedString(u"Add App"_s));
    resize(SettingsLayout::fitted({ 420, 400 }, parent->screen()->availableSize()));

    const QPixmap fallback = TemplateImage::tintedPixmap(icons.image(u"phosphor_app-window"_s),
                                                         palette().color(QPalette::PlaceholderText),
                                                         iconExtent, devicePixelRatioF());
    m_filtered->setSourceModel(new Applications(workspace.installedApplications(), fallback, this));
    setupControls();
    selectFirst();
    m_searchField->setFocus();
}

void ApplicationChooser::setupControls()
{
    m_filtered->setFilterRole(searchRole);
    m_filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setModel(m_filtered);
    m_list->setUniformItemSizes(true);
    m_list->setIconSize({ iconExtent, iconExtent });
    m_list->setSpacing(2);
    m_list->setAccessibleName(m_texts.localizedString(u"Add App"_s));
    AccessibleCells::readOnFocus(m_list);
    m_searchField->setPlaceholderText(m_texts.localizedString(u"Search"_s));
    m_searchField->setAccessibleName(m_searchField->placeholderText());
    m_searchField->setClearButtonEnabled(true);
    m_searchField->installEventFilter(this);

    auto *buttons = new QDialogButtonBox;
    auto *select = buttons->addButton(m_texts.localizedString(u"Select App"_s),
                                      QDialogButtonBox::AcceptRole);
    auto *other
        = buttons->addButton(m_texts.localizedString(u"Other..."_s), QDialogButtonBox::ActionRole);
    buttons->addButton(m_texts.localizedString(u"Cancel"_s), QDialogButtonBox::RejectRole);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_searchField);
    column->addWidget(m_list);
    column->addWidget(buttons);

    connect(m_searchField, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filtered->setFilterFixedString(text);
        selectFirst();
    });
    connect(m_list, &QListView::doubleClicked, this, &ApplicationChooser::acceptCurrent);
    connect(buttons, &QDialogButtonBox::accepted, this, &ApplicationChooser::acceptCurrent);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(other, &QPushButton::clicked, this, &ApplicationChooser::chooseFile);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, select,
            [this, select](const QModelIndex &current) {
                select->setEnabled(current.isValid());
                // The list has not got the focus that a screen reader follows.
                m_searchField->setAccessibleDescription(current.data().toString());
            });
    select->setDefault(true);
}

/// The keys that move in a list do so while the user types.
bool ApplicationChooser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
            || key == Qt::Key_PageDown)
            return QCoreApplication::sendEvent(m_list, event);
    }
    return QDialog::eventFilter(watched, event);
}

void ApplicationChooser::selectFirst()
{
    m_list->setCurrentIndex(m_filtered->index(0, 0));
}

void ApplicationChooser::acceptCurrent()
{
    const QModelIndex current = m_list->currentIndex();
    if (!current.isValid())
        return;
    Q_EMIT chosen(current.data(identifierRole).toString());
    accept();
}

void ApplicationChooser::chooseFile()
{
    const QString title = m_texts.localizedString(u"Select App"_s);
    auto *dialog = new QFileDialog(this, title, u"/usr/share/applications"_s, u"*.desktop"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setLabelText(QFileDialog::Accept, title);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        if (const auto identifier = m_workspace.bundleIdentifierOf(path))
            Q_EMIT chosen(*identifier);
        else
            Log::print(u"Error: Could not extract Bundle ID from "_s + path);
        accept();
    });
    dialog->open();
}

}
