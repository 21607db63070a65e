// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/IconPickerViewController.h"

#include "base/HelperFolder.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/ConfigManager.h"
#include "config/IconResolver.h"
#include "config/ResourceBundle.h"
#include "config/TemplateImage.h"
#include "settings/AccessibleCells.h"
#include "settings/ActionEditing.h"
#include "settings/IconCellDelegate.h"
#include "windows/Theme.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QStandardPaths>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QSize pickerSize(300, 400);
constexpr int inset = 10;
constexpr int distance = 4; ///< from what it belongs to

/// What is offered when the icon set is missing.
QStringList fallbackIcons()
{
    return { u"phosphor_copy"_s, u"phosphor_magnifying-glass"_s,
             u"phosphor_hash"_s, u"phosphor_text-aa"_s,
             u"phosphor_star"_s, u"phosphor_heart"_s };
}

/// With their capitals.
QString imagePatterns()
{
    const QString patterns = u"*.png *.jpg *.jpeg *.svg *.webp *.tiff *.icns"_s;
    return patterns + u' ' + patterns.toUpper();
}

class IconNames final : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::AccessibleTextRole)
            return ActionEditing::iconWords(data(index, Qt::DisplayRole).toString());
        return QStringListModel::data(index, role);
    }
};

QStringList offeredIcons(const ResourceBundle &bundle)
{
    const QStringList names = bundle.iconSetNames();
    return names.isEmpty() ? fallbackIcons() : names;
}

}

IconPickerViewController::IconPickerViewController(Dependencies dependencies, QWidget *parent)
    : QWidget(parent, Qt::Popup)
    , m_dependencies(dependencies)
    , m_filteredIcons(new QSortFilterProxyModel(this))
    , m_searchField(new QLineEdit(this))
    , m_collectionView(new QListView(this))
{
    m_filteredIcons->setSourceModel(
        new IconNames(offeredIcons(dependencies.bundle), m_filteredIcons));
    m_filteredIcons->setFilterCaseSensitivity(Qt::CaseInsensitive);
    Log::print(u"DEBUG IconPicker: Loaded %1 icons"_s.arg(m_filteredIcons->rowCount()));
    setFixedSize(pickerSize);
    setupControls();
}

void IconPickerViewController::setupControls()
{
    const LocalizationManager &texts = m_dependencies.localization;
    auto *import = new QPushButton(texts.localizedString(u"Import..."_s), this);
    const int importWidth = std::max(roomFor(70), import->sizeHint().width());
    m_searchField->setGeometry(inset, inset, 270 - importWidth, 30);
    m_searchField->setPlaceholderText(
        texts.localizedString(u"Search %1 icons..."_s).arg(m_filteredIcons->rowCount()));
    m_searchField->setAccessibleName(m_searchField->placeholderText());
    connect(m_searchField, &QLineEdit::textChanged, m_filteredIcons,
            &QSortFilterProxyModel::setFilterFixedString);

    import->setGeometry(290 - importWidth, inset, importWidth, 30);
    connect(import, &QPushButton::clicked, this, &IconPickerViewController::chooseFile);

    // A pixel to the left, without which Qt would put five icons in a row: it wants one more than
    // six need.
    m_collectionView->setGeometry(inset - 1, 50, 281, 340);
    AccessibleCells::readOnFocus(m_collectionView);
    m_collectionView->setFrameShape(QFrame::NoFrame);
    m_collectionView->setViewMode(QListView::IconMode);
    m_collectionView->setMovement(QListView::Static);
    m_collectionView->setResizeMode(QListView::Adjust);
    m_collectionView->setUniformItemSizes(true);
    m_collectionView->setGridSize(IconCellDelegate::gridSize);
    m_collectionView->setVerticalScrollMode(QListView::ScrollPerPixel);
    m_collectionView->setMouseTracking(true);
    m_collectionView->viewport()->setBackgroundRole(QPalette::Window);
    m_collectionView->setItemDelegate(new IconCellDelegate(m_dependencies.icons, m_collectionView));
    m_collectionView->setModel(m_filteredIcons);
    const auto chooseIndex = [this](const QModelIndex &index) { choose(index.data().toString()); };
    connect(m_collectionView, &QListView::clicked, this, chooseIndex);
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space }) {
        auto *pick = new QShortcut(key, m_collectionView);
        pick->setContext(Qt::WidgetShortcut);
        connect(pick, &QShortcut::activated, this,
                [this, chooseIndex] { chooseIndex(m_collectionView->currentIndex()); });
    }
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    m_searchField->setFocus();
}

void IconPickerViewController::showBeside(const QRect &area)
{
    const QRect available = screen()->availableGeometry();
    setFixedHeight(std::min(pickerSize.height(), available.height()));
    m_collectionView->setFixedHeight(height() - m_collectionView->y() - inset);
    const int bottom = available.y() + available.height();
    const auto clamped = [](int value, int first, int size, int own) { // within the screen
        return std::clamp(value, first, std::max(first, first + size - own));
    };
    QPoint place(area.x() + (area.width() - width()) / 2, area.y() + area.height() + distance);
    if (place.y() + height() > bottom)
        place.setY(area.y() - height() - distance);
    if (place.y() < available.y())
        place = { area.x() + area.width() + distance, bottom };
    m_collectionView->setAccessibleName(accessibleName());
    move(clamped(place.x(), available.x(), available.width(), width()),
         clamped(place.y(), available.y(), available.height(), height()));
    show();
}

void IconPickerViewController::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void IconPickerViewController::choose(const QString &iconName)
{
    if (!iconName.isEmpty())
        QMetaObject::invokeMethod(
            this, [this, iconName] { Q_EMIT didSelectIcon(iconName); }, Qt::QueuedConnection);
}

/// The picker hides behind the dialog and lives until that is done.
void IconPickerViewController::chooseFile()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    const LocalizationManager &texts = m_dependencies.localization;
    auto *dialog = new QFileDialog(parentWidget()->window(), texts.localizedString(u"Import"_s),
                                   QFileInfo(pictures).isDir() ? pictures : QDir::homePath(),
                                   texts.localizedString(u"Images (%1)"_s).arg(imagePatterns()));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &IconPickerViewController::importIcon);
    connect(dialog, &QFileDialog::rejected, this, &QObject::deleteLater);
    m_isImporting = true;
    hide();
    dialog->open();
}

void IconPickerViewController::importIcon(const QString &path)
{
    const auto name = m_dependencies.config.saveCustomIcon(path);
    const auto copy = name ? m_dependencies.config.getCustomIconURL(*name) : std::nullopt;
    if (copy)
        return makeRendition(*name, *copy, QFileInfo(path).fileName());
    if (!name)
        tell(name.error().reason, path);
    deleteLater();
}

/// The icon is chosen even if it cannot be shown: the list says so, too, until it is replaced.
void IconPickerViewController::makeRendition(const QString &iconName, const QString &copy,
                                             const QString &fileName)
{
    CommandRequest request;
    request.program = helperFolder() + u"/tessel-icon-import"_s;
    request.arguments = { copy, IconResolver::renditionPath(copy) };
    m_importer.run(request, [this, iconName, fileName](const Result<CommandResult> &result) {
        if (!result)
            tell(result.error().reason, fileName);
        else if (result->isEndedBySignal) // by its limits
            tell(u"The image is too large or takes too long to draw"_s, fileName);
        else if (result->exitStatus != 0)
            tell(u"The image file cannot be read"_s, fileName);
        if (result && result->exitStatus != 0)
            Log::print(u"ERROR: "_s + QString::fromUtf8(result->errorOutput).trimmed());
        Q_EMIT didSelectIcon(iconName);
        deleteLater();
    });
}

void IconPickerViewController::tell(const QString &reason, const QString &fileName)
{
    auto *box = new QMessageBox(parentWidget()->window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(m_dependencies.localization.localizedString(u"Import"_s));
    box->setText(m_dependencies.localization.localizedString(reason));
    box->setInformativeText(fileName);
    box->setTextFormat(Qt::PlainText);
    box->setIconPixmap(TemplateImage::tintedPixmap(
        m_dependencies.icons.image(u"exclamationmark.triangle"_s),
        palette().color(QPalette::WindowText), 32, devicePixelRatioF()));
    box->open();
}

void IconPickerViewController::cleanup()
{
    m_filteredIcons->setSourceModel(nullptr);
}

void IconPickerViewController::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!m_isImporting)
        deleteLater();
}

}
