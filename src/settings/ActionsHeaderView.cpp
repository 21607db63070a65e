// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsHeaderView.h"

#include "settings/ActionsDelegate.h"
#include "settings/ActionsModel.h"
#include "windows/Theme.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace Tessel {

namespace {

constexpr int headerHeight = 26;
constexpr int labelMargin = 12;
constexpr int maxTitleWidth = 240; ///< pixels that the titles may take at first

constexpr int resizables[]
    = { ActionsModel::titleColumn, ActionsModel::templateColumn, ActionsModel::regexColumn };

bool isResizable(int column)
{
    return std::find(std::begin(resizables), std::end(resizables), column) != std::end(resizables);
}

int titleWidth(const ActionsModel &model, const QFontMetrics &metrics)
{
    int widest = 0;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString title = model.action(row)->title.left(maxTitleWidth / 4);
        widest = std::max(widest, metrics.horizontalAdvance(title));
    }
    return std::clamp(widest + 20, 100, maxTitleWidth);
}

int typeWidth(const QFontMetrics &metrics)
{
    int widest = 90;
    for (const ActionTypeInfo &info : actionTypes())
        widest = std::max(widest, ActionsDelegate::buttonWidth(metrics, info.rawValue));
    return widest;
}

}

ActionsHeaderView::ActionsHeaderView(const ActionsModel &model, QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
    , m_model(model)
{
    setFont(sized(font(), FontSize::caption));
    setFixedHeight(roomFor(headerHeight));
    setHighlightSections(false);
    setMinimumSectionSize(30);
    connect(&model, &QAbstractItemModel::headerDataChanged, this,
            &ActionsHeaderView::widenForLabels);
    connect(this, &QHeaderView::sectionResized, this, [this](int column) {
        if (m_isFitting)
            return; // by itself, not by the user
        const QScopedValueRollback guard(m_isFitting, true);
        distribute(m_width - length(), column + 1);
        distribute(m_width - length(), 0);
    });
}

void ActionsHeaderView::layoutColumns(const QFontMetrics &contents)
{
    const QScopedValueRollback guard(m_isFitting, true);
    const int widths[] = { 45, 35, titleWidth(m_model, contents), typeWidth(contents), 280, 90 };
    for (int column = 0; column < ActionsModel::columns; ++column) {
        setSectionResizeMode(column, isResizable(column) ? Interactive : Fixed);
        resizeSection(column, std::max(widths[column], labelWidth(column)));
    }
    distribute(m_width - length(), 0);
}

void ActionsHeaderView::fit(int width)
{
    const QScopedValueRollback guard(m_isFitting, true);
    m_width = width;
    distribute(m_width - length(), 0);
}

/// Labels of another language can need more.
void ActionsHeaderView::widenForLabels()
{
    const QScopedValueRollback guard(m_isFitting, true);
    for (int column = 0; column < count(); ++column)
        resizeSection(column, std::max(sectionSize(column), labelWidth(column)));
    distribute(m_width - length(), 0);
}

int ActionsHeaderView::labelWidth(int column) const
{
    const QString label = m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    return fontMetrics().horizontalAdvance(label) + labelMargin;
}

int ActionsHeaderView::minWidth(int column) const
{
    const int least = column == ActionsModel::regexColumn ? 50 : 100;
    return std::max(least, labelWidth(column));
}

/// Evenly among the columns from the given one on.
void ActionsHeaderView::distribute(int difference, int firstColumn)
{
    if (m_width == 0)
        return;
    const auto takesPart = [&](int column) {
        const bool canGive = sectionSize(column) > minWidth(column);
        return column >= firstColumn && (difference > 0 || (difference < 0 && canGive));
    };
    // What a column cannot give, those that still can give in the next turn.
    for (std::size_t turn = 0; turn < std::size(resizables); ++turn) {
        auto sharing = int(std::count_if(std::begin(resizables), std::end(resizables), takesPart));
        for (const int column : resizables) {
            if (!takesPart(column))
                continue;
            const int before = sectionSize(column);
            resizeSection(column, std::max(minWidth(column), before + difference / sharing--));
            difference -= sectionSize(column) - before;
        }
    }
}

}
