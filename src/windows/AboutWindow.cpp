// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/AboutWindow.h"

#include "base/LocalizationManager.h"
#include "windows/Theme.h"
#include "windows/WindowCommands.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

QLabel *centredLabel(const QString &text, int pixels, QFont::Weight weight = QFont::Normal)
{
    auto *label = new QLabel(text);
    label->setFont(sized(label->font(), pixels, weight));
    label->setAlignment(Qt::AlignCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}

AboutWindow::AboutWindow(const QImage &icon)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(localized(u"About Tessel"_s));
    addWindowCommands(this);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);

    auto *picture = new QLabel;
    picture->setPixmap(QPixmap::fromImage(icon));
    picture->setAlignment(Qt::AlignCenter);
    const QString icons = u"<a href=\"https://phosphoricons.com\">Phosphor</a>, MIT"_s;
    const QString toolkit
        = u"<a href=\"https://www.qt.io\">Qt</a> %1, LGPL 3"_s.arg(QLatin1StringView(qVersion()));
    auto *links = centredLabel(localized(u"Icons: %1"_s).arg(icons) + u"<br>"_s
                                   + localized(u"Built with %1"_s).arg(toolkit),
                               FontSize::note);
    links->setOpenExternalLinks(true);
    links->setTextInteractionFlags(Qt::TextBrowserInteraction);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(48, 28, 48, 32);
    column->setSpacing(6);
    column->addWidget(picture);
    column->addWidget(centredLabel(u"Tessel"_s, FontSize::product, QFont::Bold));
    column->addWidget(centredLabel(
        localized(u"Version %1"_s).arg(QApplication::applicationVersion()), FontSize::text));
    column->addSpacing(10);
    column->addWidget(
        centredLabel(localized(u"© 2026 The Tessel developers\nMIT License"_s), FontSize::note));
    column->addWidget(links);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void AboutWindow::open(const QImage &icon)
{
    static QPointer<AboutWindow> window;
    if (!window)
        window = new AboutWindow(icon);
    window->show();
    window->raise();
    window->activateWindow();
}

}
