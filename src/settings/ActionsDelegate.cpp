// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsDelegate.h"

#include "config/IconResolver.h"
#include "config/TemplateImage.h"
#include "settings/ActionsModel.h"
#include "settings/CellField.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QPainter>

namespace Tessel {

namespace {

constexpr int iconExtent = 20;
constexpr int checkBoxExtent = 16;
constexpr int textMargin = 6;
constexpr int arrowsWidth = 20;
constexpr qsizetype maxDrawnLength = 500; ///< characters; more do not fit into any row

QStyle *styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

QColor textColor(const QStyleOptionViewItem &option)
{
    const bool isSelected = option.state & QStyle::State_Selected;
    return option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
}

/// Readable on the ground of a field, whatever style and palette the user has given to Qt.
QColor remarkColor(Remark::Kind kind, const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    const Theme::Window &colors = themeFor(ThemeMode::system, isDark).window;
    return kind == Remark::Kind::wrong ? colors.wrong : colors.doubtful;
}

void show(const std::optional<Remark> &remark, QWidget *field)
{
    QPalette palette;
    if (remark)
        palette.setColor(QPalette::Text, remarkColor(remark->kind, field->palette()));
    field->setPalette(palette);
    field->setToolTip(remark ? remark->reason : QString());
}

}

ActionsDelegate::ActionsDelegate(const IconResolver &icons, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_icons(icons)
{
}

void ActionsDelegate::paint(QPainter *painter, const QStyleOptionViewItem &given,
                            const QModelIndex &index) const
{
    QStyleOptionViewItem option = given;
    option.index = index;
    if (index.row() % 2)
        option.features |= QStyleOptionViewItem::Alternate;
    QStyle *style = styleOf(option);
    style->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, painter, option.widget);
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    const bool isMenu = !index.flags().testFlag(Qt::ItemIsEditable);
    switch (index.column()) {
    case ActionsModel::enabledColumn:
        paintCheckBox(painter, option, index.data(Qt::CheckStateRole) == Qt::Checked);
        break;
    case ActionsModel::iconColumn:
        paintIcon(painter, option, index.data(Qt::DecorationRole).toString());
        break;
    case ActionsModel::typeColumn:
        paintButton(painter, option, index.data().toString());
        break;
    case ActionsModel::templateColumn:
        if (isMenu) {
            paintButton(painter, option, index.data().toString());
            break;
        }
        [[fallthrough]];
    default:
        paintText(painter, option, index);
    }
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        if (option.state & QStyle::State_Selected)
            focus.palette.setColor(QPalette::Highlight, textColor(option));
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
    }
}

void ActionsDelegate::paintCheckBox(QPainter *painter, const QStyleOptionViewItem &option,
                                    bool isOn) const
{
    QStyleOptionButton box;
    box.QStyleOption::operator=(option);
    box.rect = QRect(0, 0, checkBoxExtent, checkBoxExtent);
    box.rect.moveCenter(option.rect.center());
    box.state = QStyle::State_Enabled | (isOn ? QStyle::State_On : QStyle::State_Off);
    if (option.state & QStyle::State_Selected && isOn) {
        box.palette.setColor(QPalette::Highlight, option.palette.color(QPalette::HighlightedText));
        box.palette.setColor(QPalette::HighlightedText, option.palette.color(QPalette::Highlight));
    }
    styleOf(option)->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, option.widget);
}

void ActionsDelegate::paintIcon(QPainter *painter, const QStyleOptionViewItem &option,
                                const QString &name) const
{
    const QColor color = textColor(option);
    const double scale = painter->device()->devicePixelRatioF();
    QPixmap &pixmap = m_pixmaps[name + color.name() + QString::number(scale)];
    if (pixmap.isNull()) {
        const QImage image = m_icons.image(name);
        if (image.isNull())
            return;
        pixmap = TemplateImage::tintedPixmap(image, color, iconExtent, scale);
    }
    TemplateImage::drawCentred(*painter, pixmap, option.rect);
}

QRect ActionsDelegate::buttonRect(const QRect &cell)
{
    QRect button(0, 0, cell.width() - 6, roomFor(22));
    button.moveCenter(cell.center());
    return button;
}

int ActionsDelegate::buttonWidth(const QFontMetrics &metrics, const QString &title)
{
    return metrics.horizontalAdvance(title) + textMargin + arrowsWidth + 8;
}

void ActionsDelegate::paintButton(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QString &title) const
{
    QStyleOptionComboBox button;
    button.QStyleOption::operator=(option);
    button.rect = buttonRect(option.rect);
    button.state = QStyle::State_Enabled;
    button.subControls = QStyle::SC_All;
    styleOf(option)->drawComplexControl(QStyle::CC_ComboBox, &button, painter, option.widget);
    painter->setPen(option.palette.color(QPalette::ButtonText));
    painter->setFont(option.font);
    const QRect text = button.rect.adjusted(textMargin, 0, -arrowsWidth, 0);
    painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                      option.fontMetrics.elidedText(title, Qt::ElideRight, text.width()));
}

void ActionsDelegate::paintText(QPainter *painter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    QString text
        = index.data().toString().left(maxDrawnLength).simplified(); // of several lines, one
    QColor color = textColor(option);
    const bool isSelected = option.state & QStyle::State_Selected;
    const QVariant remark = index.data(ActionsModel::remarkRole);
    if (remark.isValid() && !isSelected)
        color = remarkColor(Remark::Kind(remark.toInt()), option.palette);
    if (text.isEmpty()) {
        text = index.data(ActionsModel::placeholderRole).toString();
        color.setAlphaF(0.5F);
    }
    painter->setPen(color);
    QFont font = option.font;
    font.setUnderline(remark.isValid() && isSelected); // no colour can be read on the selection's
    painter->setFont(font);
    const QRect place = option.rect.adjusted(textMargin, 0, -textMargin, 0);
    painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
}

QWidget *ActionsDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                       const QModelIndex &index) const
{
    auto *field = new CellField(parent);
    field->setPlaceholderText(index.data(ActionsModel::placeholderRole).toString());
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    const auto *model = static_cast<const ActionsModel *>(index.model());
    connect(field, &QLineEdit::textChanged, field,
            [field, model, cell = QPersistentModelIndex(index)](const QString &text) {
                show(model->remark(cell, text), field);
            });
    return field;
}

void ActionsDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                           const QModelIndex &) const
{
    editor->setGeometry(option.rect.adjusted(0, 2, 0, -2));
}

}
