// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/SaveNotice.h"

#include "base/LocalizationManager.h"
#include "config/ConfigManager.h"
#include "windows/Theme.h"

#include <QAccessible>
#include <QEvent>

using namespace Qt::StringLiterals;

namespace Tessel {

SaveNotice::SaveNotice(const ConfigManager &config, const LocalizationManager &texts,
                       QWidget *parent)
    : QLabel(parent)
    , m_config(config)
    , m_texts(texts)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setContentsMargins(20, 4, 20, 12);
    setFont(sized(font(), FontSize::text));
    recolor();
    refresh();
    connect(&config, &ConfigManager::saveFailureChanged, this, &SaveNotice::refresh);
}

void SaveNotice::refresh()
{
    const QString &reason = m_config.saveFailure();
    setText(m_texts.localizedString(u"Changes are not being saved: %1"_s)
                .arg(m_texts.localizedString(reason)));
    setHidden(reason.isEmpty());
    if (isVisible()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void SaveNotice::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        recolor();
}

/// Readable on the window's ground, whatever palette the user has given to Qt.
void SaveNotice::recolor()
{
    QPalette colors = palette();
    const bool isDark = colors.color(QPalette::Window).lightness() < 128;
    const QColor &wrong = themeFor(ThemeMode::system, isDark).window.wrong;
    if (colors.color(foregroundRole()) == wrong)
        return;
    colors.setColor(foregroundRole(), wrong);
    setPalette(colors);
}

}
