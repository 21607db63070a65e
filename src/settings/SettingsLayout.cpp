// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/SettingsLayout.h"

namespace Tessel {

namespace {

constexpr QSize frameRoom(16, 48); ///< a frame's size is not known before it is there

}

QBoxLayout *SettingsLayout::stack(QWidget *widget, Qt::Orientation orientation, int spacing)
{
    const auto direction
        = orientation == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    auto *layout = new QBoxLayout(direction, widget);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    return layout;
}

QWidget *SettingsLayout::row(int spacing, const QList<QWidget *> &widgets)
{
    auto *row = new QWidget;
    QBoxLayout *layout = stack(row, Qt::Horizontal, spacing);
    for (QWidget *widget : widgets)
        layout->addWidget(widget, 0, Qt::AlignVCenter);
    layout->addStretch();
    return row;
}

QScrollArea *SettingsLayout::scrolled(QWidget *content)
{
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    return area;
}

QSize SettingsLayout::fitted(const QSize &preferred, const QSize &workArea)
{
    return preferred.boundedTo(workArea - frameRoom);
}

QWidget *SettingsLayout::section(const QString &title, const QList<QWidget *> &widgets)
{
    auto *section = new QWidget;
    QBoxLayout *layout = stack(section, Qt::Vertical, 16);
    layout->addWidget(secondaryLabel(title, FontSize::section, QFont::Bold));
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return section;
}

QWidget *SettingsLayout::separator()
{
    auto *line = new QWidget;
    line->setFixedHeight(1);
    line->setAutoFillBackground(true);
    line->setBackgroundRole(QPalette::Mid);
    return line;
}

QLabel *SettingsLayout::label(const QString &text, int pixels, QFont::Weight weight)
{
    auto *label = new QLabel(text);
    label->setFont(sized(label->font(), pixels, weight));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel *SettingsLayout::labelOf(QWidget *control, const QString &text)
{
    QLabel *name = label(text);
    name->setBuddy(control);
    return name;
}

QLabel *SettingsLayout::secondaryLabel(const QString &text, int pixels, QFont::Weight weight)
{
    QLabel *secondary = label(text, pixels, weight);
    secondary->setForegroundRole(QPalette::PlaceholderText);
    return secondary;
}

}
