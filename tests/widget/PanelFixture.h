// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ActionManager.h"
#include "bar/FloatingPanel.h"
#include "bar/HoverButton.h"
#include "base/LocalizationManager.h"
#include "config/ConfigManager.h"
#include "config/IconResolver.h"
#include "config/NotificationCenter.h"
#include "config/ResourceBundle.h"
#include "platform/fake/FakePlatform.h"
#include "widget/ShownWindow.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace Tessel {

/// A bar with all that it needs, on a faked desktop and a configuration of its own.
struct PanelFixture
{
    PanelFixture()
    {
        // The offscreen platform has no stacking and no shapes.
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    }

    QTemporaryDir folder;
    FakePlatform platform;
    NotificationCenter notifications;
    LocalizationManager localization;
    ConfigManager config { { folder.path(), notifications, localization } };
    ResourceBundle bundle { QStringLiteral(TESSEL_BUNDLE) };
    IconResolver icons { config, bundle };
    ActionManager actions { { config, notifications, platform.workspace(),
                              platform.pasteboard() } };
    FloatingPanel panel { { actions, config, notifications, icons, platform.popupHost(),
                            platform.appearance() } };

    /// Replaces the list: URL actions by their titles, each with an optional regular expression.
    void setActions(const QList<std::pair<QString, QString>> &titlesAndPatterns)
    {
        config.customActions.clear();
        for (const auto &[title, regex] : titlesAndPatterns) {
            ActionConfig action;
            action.id = action.title = title;
            action.iconName = QStringLiteral("phosphor_star");
            action.templateText = QStringLiteral("test://%1/{text}").arg(title);
            if (!regex.isEmpty())
                action.regex = regex;
            config.customActions += action;
        }
        config.save();
    }

    /// The bar, null when there is nothing to show.
    PanelWindow *show(const QString &text)
    {
        panel.show(platform.popupHost().location, text, config.enableKeyboardShortcuts);
        return shownWindow<PanelWindow>();
    }
};

}
