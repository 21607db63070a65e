// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "dialog/MessageDialog.h"

#include "base/LocalizationManager.h"
#include "dialog/DialogParts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

using Osascript::DialogRequest;

namespace {

constexpr int iconSize = 48;
constexpr int margin = 16;
constexpr int spacing = 12;

std::optional<QStyle::StandardPixmap> symbol(DialogRequest::Icon icon)
{
    switch (icon) {
    case DialogRequest::Icon::none:
        return {};
    case DialogRequest::Icon::note:
        return QStyle::SP_MessageBoxInformation;
    case DialogRequest::Icon::caution:
        return QStyle::SP_MessageBoxWarning;
    case DialogRequest::Icon::stop:
        return QStyle::SP_MessageBoxCritical;
    }
    return {};
}

}

MessageDialog::MessageDialog(const DialogRequest &request)
{
    DialogParts::setTitle(this, request.title);
    const auto cancel = request.buttons.indexOf(request.cancelButton);
    m_cancel = request.buttons.size() == 1 ? 0 : static_cast<int>(cancel);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    column->addLayout(messageRow(request), 1);
    QWidget *field = request.defaultAnswer ? answerField(request) : nullptr;
    if (field)
        column->addWidget(field);
    column->addLayout(buttonRow(request));
    for (auto *button : findChildren<QPushButton *>()) {
        if (!field && button->isDefault())
            field = button;
    }
    if (field)
        field->setFocus();
    if (request.givingUpAfter)
        QTimer::singleShot(*request.givingUpAfter, this, [this] { answer(-1); });
}

QLayout *MessageDialog::messageRow(const DialogRequest &request) const
{
    auto *row = new QHBoxLayout;
    row->setSpacing(margin);
    if (const auto icon = symbol(request.icon)) {
        auto *label = new QLabel;
        label->setPixmap(style()->standardIcon(*icon).pixmap(iconSize));
        row->addWidget(label, 0, Qt::AlignTop);
    }
    auto *texts = new QVBoxLayout;
    const bool hasDetail = !request.detail.isEmpty();
    if (!request.message.isEmpty())
        texts->addWidget(
            DialogParts::textView(request.message, hasDetail ? QFont::Bold : QFont::Normal));
    if (hasDetail)
        texts->addWidget(DialogParts::textView(request.detail), 1);
    row->addLayout(texts, 1);
    return row;
}

QWidget *MessageDialog::answerField(const DialogRequest &request)
{
    const QString &text = *request.defaultAnswer;
    QWidget *field = nullptr;
    if (text.contains(u'\n') && !request.hiddenAnswer) {
        m_lines = new QPlainTextEdit(text);
        m_lines->setTabChangesFocus(true);
        m_lines->selectAll();
        field = m_lines;
    } else {
        m_line = new QLineEdit;
        m_line->setMaxLength(std::numeric_limits<int>::max());
        m_line->setText(text);
        m_line->selectAll();
        if (request.hiddenAnswer)
            m_line->setEchoMode(QLineEdit::Password);
        field = m_line;
    }
    field->setAccessibleName(localized(u"Answer"_s));
    field->setMinimumWidth(DialogParts::textWidth);
    return field;
}

QLayout *MessageDialog::buttonRow(const DialogRequest &request)
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    const QStringList names = DialogParts::shownNames(request.buttons);
    for (int i = 0; i < request.buttons.size(); ++i) {
        QPushButton *button = DialogParts::button(names[i]);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, i] { answer(i); });
        button->setDefault(request.buttons[i] == request.defaultButton);
    }
    return row;
}

void MessageDialog::answer(int button)
{
    if (std::exchange(m_isAnswered, true))
        return;
    const QString text = m_lines ? m_lines->toPlainText() : m_line ? m_line->text() : QString();
    Q_EMIT answered(button, text);
}

void MessageDialog::reject()
{
    if (m_cancel >= 0)
        answer(m_cancel);
}

}
