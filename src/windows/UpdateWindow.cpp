// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/UpdateWindow.h"

#include "base/LocalizationManager.h"
#include "platform/Workspace.h"
#include "windows/Theme.h"
#include "windows/WindowCommands.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int textWidth = 400;
constexpr int notesHeight = 160;

/// The URL in its encoded form; empty unless a web browser is what opens it.
QString webLink(const QString &link)
{
    const QUrl url(link, QUrl::StrictMode);
    const bool isWeb = url.scheme() == u"https" || url.scheme() == u"http";
    return isWeb && !url.host().isEmpty() ? url.toString(QUrl::FullyEncoded) : QString();
}

QLabel *plainLabel(const QString &name)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(roomFor(textWidth));
    return label;
}

}

UpdateWindow::UpdateWindow(Workspace &workspace)
    : m_workspace(workspace)
    , m_title(plainLabel(u"title"_s))
    , m_text(plainLabel(u"text"_s))
    , m_notes(new QPlainTextEdit)
    , m_linkButton(new QPushButton(localized(u"Open the Web Page"_s)))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(localized(u"Software Update"_s));
    addWindowCommands(this);
    QFont font = m_title->font();
    font.setBold(true);
    m_title->setFont(font);
    m_notes->setReadOnly(true);
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(roomFor(notesHeight));
    m_notes->setAccessibleName(localized(u"Release notes"_s));
    m_linkButton->setObjectName(u"link"_s);
    connect(m_linkButton, &QPushButton::clicked, this, [this] { m_workspace.open(m_link); });
    auto *close = new QPushButton(localized(u"Close"_s));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_linkButton);
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    for (QWidget *widget : { static_cast<QWidget *>(m_title), static_cast<QWidget *>(m_text),
                             static_cast<QWidget *>(m_notes) })
        layout->addWidget(widget);
    layout->addLayout(buttons);
    close->setFocus();
}

void UpdateWindow::setContent(const Content &content)
{
    m_title->setText(content.title);
    m_text->setText(content.text);
    m_text->setHidden(content.text.isEmpty());
    m_notes->setPlainText(content.notes);
    m_notes->setHidden(content.notes.isEmpty());
    m_link = webLink(content.link);
    m_linkButton->setHidden(m_link.isEmpty());
}

}
