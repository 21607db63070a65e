// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "dialog/ListDialog.h"

#include "base/LocalizationManager.h"
#include "base/TextRules.h"
#include "dialog/DialogParts.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

using Osascript::ListRequest;

namespace {

constexpr int margin = 16;
constexpr int spacing = 12;
constexpr int minRows = 5;
constexpr int maxRows = 14;

/// In the user's language when it is AppleScript's own.
QString shownPrompt(const ListRequest &request)
{
    const QString usual = u"Please make your selection:"_s;
    return request.prompt == usual ? localized(usual) : request.prompt;
}

/// As high as its items, within bounds.
int preferredHeight(const QListWidget &list)
{
    const int shown = std::min(list.count(), maxRows);
    int row = shown > 0 ? list.sizeHintForRow(0) : list.fontMetrics().lineSpacing();
    int all = 0;
    for (int i = 0; i < shown; ++i) {
        row = std::min(row, list.sizeHintForRow(i));
        all += list.sizeHintForRow(i);
    }
    return std::clamp(all, minRows * row, maxRows * row) + 2 * list.frameWidth();
}

}

ListDialog::ListDialog(const ListRequest &request)
    : m_list(list(request))
{
    DialogParts::setTitle(this, request.title);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    if (!request.prompt.isEmpty())
        column->addWidget(DialogParts::textView(shownPrompt(request)));
    column->addWidget(m_list, 1);
    auto *buttons = new QHBoxLayout;
    const QStringList names = DialogParts::shownNames({ request.cancelButton, request.okButton });
    QPushButton *cancel = DialogParts::button(names[0]);
    QPushButton *ok = DialogParts::button(names[1]);
    ok->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(ok);
    column->addLayout(buttons);
    m_list->setFocus();

    const auto update = [this, ok, mayBeEmpty = request.emptySelection] {
        ok->setEnabled(mayBeEmpty || !m_list->selectedItems().isEmpty());
    };
    update();
    connect(m_list, &QListWidget::itemSelectionChanged, this, update);
    connect(m_list, &QListWidget::itemDoubleClicked, ok, &QPushButton::click);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::accepted, this, [this] { Q_EMIT answered(selection()); });
    connect(this, &QDialog::rejected, this, [this] { Q_EMIT answered({}); });
}

QListWidget *ListDialog::list(const ListRequest &request) const
{
    auto *list = new QListWidget;
    list->setSelectionMode(request.multipleSelections ? QAbstractItemView::ExtendedSelection
                                                      : QAbstractItemView::SingleSelection);
    list->setAccessibleName(shownPrompt(request));
    for (const QString &item : request.items)
        list->addItem(displayable(withNormalizedLineEnds(item)));
    list->setMinimumSize(DialogParts::textWidth, preferredHeight(*list));
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // not 192 pixels
    for (const QString &item : request.defaultItems) {
        if (QListWidgetItem *entry = list->item(static_cast<int>(request.items.indexOf(item)))) {
            list->setCurrentItem(entry, QItemSelectionModel::Select);
            list->scrollToItem(entry);
        }
    }
    return list;
}

QList<int> ListDialog::selection() const
{
    QList<int> chosen;
    for (int i = 0; i < m_list->count(); ++i) {
        if (m_list->item(i)->isSelected())
            chosen += i;
    }
    return chosen;
}

}
