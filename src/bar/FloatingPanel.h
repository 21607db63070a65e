// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bar/PanelWindow.h"
#include "capture/ActionBar.h"
#include "platform/PopupHost.h"

#include <QHash>
#include <QImage>
#include <QObject>

namespace Tessel {

class ActionManager;
class Appearance;
class ConfigManager;
class IconResolver;
class NotificationCenter;
struct GlintAction;

/// The bar of actions beside the pointer: offers those that apply to a text and runs the one that
/// the user clicks or picks by its key. Main thread only.
class FloatingPanel final : public QObject, public ActionBar
{
    Q_OBJECT

public:
    struct Dependencies
    {
        ActionManager &actions;
        ConfigManager &config;
        NotificationCenter &notifications;
        IconResolver &icons;
        PopupHost &popupHost;
        Appearance &appearance;
    };

    explicit FloatingPanel(Dependencies dependencies);

    /// The process-wide instance, on the current platform.
    static FloatingPanel &shared();

    void show(const PopupLocation &at, const QString &text, bool makeKey) override;
    void hide() override;

    [[nodiscard]] const QString &currentText() const { return m_currentText; }

    void reloadButtons();
    void updateTheme();

    /// Builds the bar ahead of its first use.
    void warmUp();

Q_SIGNALS:
    void settingsRequested();
    void shownChanged(bool isShown);

private:
    enum class Phase { hidden, shown, hiding };

    void rebuild();
    [[nodiscard]] QPoint place() const;
    void fill(HoverButton &button, const GlintAction &action, const QString &effectiveText,
              int index);
    [[nodiscard]] QImage icon(const QString &name);
    void takeKeys();
    void handleKey(const PopupKey &key);
    void choose(HoverButton *button);
    void forgetText();

    Dependencies m_dependencies;
    PanelWindow m_window;
    QList<HoverButton *> m_buttons; ///< those in use, in order
    QHash<QString, QImage> m_icons; ///< decoded template images by icon name
    QString m_currentText;
    PopupLocation m_location; ///< where it was asked for
    Phase m_phase = Phase::hidden;
    bool m_takesKeys = false;
    bool m_isChosen = false; ///< a button flashes and its action is about to run
};

}
