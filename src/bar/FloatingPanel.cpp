// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/FloatingPanel.h"

#include "actions/ActionManager.h"
#include "actions/Pattern.h"
#include "bar/HoverButton.h"
#include "bar/PanelKeys.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "base/TextRules.h"
#include "config/ConfigManager.h"
#include "config/DefaultActions.h"
#include "config/IconResolver.h"
#include "config/NotificationCenter.h"
#include "config/ResourceBundle.h"
#include "platform/Appearance.h"
#include "platform/Platform.h"
#include "windows/ScreenChanges.h"
#include "windows/Theme.h"

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// The counting action shows its result before it is clicked.
QString countTitle(const QString &text)
{
    const qsizetype count = characterCount(text);
    return (count == 1 ? localized(u"%1 char"_s) : localized(u"%1 chars"_s)).arg(count);
}

}

FloatingPanel::FloatingPanel(Dependencies dependencies)
    : m_dependencies(dependencies)
    , m_window(dependencies.popupHost)
{
    connect(&dependencies.notifications, &NotificationCenter::actionsDidReload, this, [this] {
        m_icons.clear();
        rebuild();
    });
    connect(&dependencies.notifications, &NotificationCenter::themeDidChange, this,
            &FloatingPanel::rebuild);
    connect(&dependencies.appearance, &Appearance::changed, this, &FloatingPanel::rebuild);
    onScreenChange(this, [this] { hide(); });
    connect(&dependencies.actions, &ActionManager::willRunAction, this, &FloatingPanel::hide);
    connect(&dependencies.popupHost, &PopupHost::sessionLocked, this, &FloatingPanel::hide);
    connect(&m_window, &PanelWindow::keyPressed, this, &FloatingPanel::handleKey);
    connect(&m_window, &PanelWindow::vanished, this, &FloatingPanel::forgetText);
}

FloatingPanel &FloatingPanel::shared()
{
    static auto *instance = [] {
        Platform &platform = Platform::current();
        static IconResolver icons(ConfigManager::shared(), ResourceBundle::module());
        return new FloatingPanel({ ActionManager::shared(), ConfigManager::shared(),
                                   NotificationCenter::defaultCenter(), icons, platform.popupHost(),
                                   platform.appearance() });
    }();
    return *instance;
}

void FloatingPanel::show(const PopupLocation &at, const QString &text, bool makeKey)
{
    m_currentText = text;
    m_location = at;
    updateTheme();
    if (m_buttons.isEmpty()) {
        Log::print(u"DEBUG: No action applies to the selected text.");
        m_location.watch.reset();
        hide();
        return;
    }
    const QRect frame(place(), m_window.size());
    Log::print(u"DEBUG: FloatingPanel showing at (%1, %2, %3, %4)"_s.arg(frame.x())
                   .arg(frame.y())
                   .arg(frame.width())
                   .arg(frame.height()));
    m_phase = Phase::shown;
    Q_EMIT shownChanged(true);
    m_isChosen = false;
    m_takesKeys = makeKey;
    m_window.makeNative();
    takeKeys(); // before anybody can see the bar and press one
    m_window.moveTo(frame.topLeft());
    m_window.fadeIn();
}

QPoint FloatingPanel::place() const
{
    return PanelLayout::place(m_location.pointer, m_window.size(), m_location.visibleFrame);
}

/// After a change of what a bar that is shown consists of.
void FloatingPanel::rebuild()
{
    if (m_phase != Phase::shown)
        return;
    updateTheme();
    if (m_buttons.isEmpty())
        return hide();
    m_window.moveTo(place());
    takeKeys();
}

/// The keys of as many buttons as there are; the application keeps all others.
void FloatingPanel::takeKeys()
{
    if (m_phase != Phase::shown || !m_takesKeys)
        return;
    m_dependencies.popupHost.takeKeys(m_window.windowHandle(), [this](const PopupKey &key) {
        return takesPanelKey(key, m_dependencies.config.enableKeyboardShortcuts, m_buttons.size());
    });
}

void FloatingPanel::hide()
{
    if (m_phase != Phase::shown)
        return;
    m_phase = Phase::hiding;
    m_location.watch.reset();
    m_dependencies.popupHost.releaseKeys(m_window.windowHandle());
    m_window.fadeOut();
    Q_EMIT shownChanged(false);
}

/// The captured text may be large, and is the user's: not kept longer than it is shown.
void FloatingPanel::forgetText()
{
    m_phase = Phase::hidden;
    m_currentText.clear();
    for (HoverButton *button : std::as_const(m_buttons))
        button->effectiveText.reset();
}

void FloatingPanel::updateTheme()
{
    reloadButtons();
    m_window.setTheme(themeFor(m_dependencies.config.themeMode, m_dependencies.appearance.isDark()),
                      m_dependencies.popupHost.backdrop());
}

void FloatingPanel::reloadButtons()
{
    MatchBudget budget;
    QList<std::pair<const GlintAction *, QString>> offered;
    for (const GlintAction &action : m_dependencies.actions.actions()) {
        if (const auto text = action.applicablePart(m_currentText, budget))
            offered += { &action, *text };
    }
    m_buttons = m_window.buttons(int(offered.size()));
    for (int i = 0; i < m_buttons.size(); ++i)
        fill(*m_buttons.at(i), *offered.at(i).first, offered.at(i).second, i);
    m_window.arrange();
}

void FloatingPanel::fill(HoverButton &button, const GlintAction &action,
                         const QString &effectiveText, int index)
{
    const bool isCounting = action.id == DefaultActions::countId;
    button.identifier = action.id;
    button.hoverToolTipText = action.title;
    button.effectiveText = effectiveText;
    button.showsTooltip = m_dependencies.config.showTooltips;
    button.setText(isCounting ? countTitle(m_currentText) : QString());
    button.setAccessibleName(isCounting ? action.title + u": "_s + button.text() : action.title);
    button.setTemplateImage(isCounting ? QImage() : icon(action.iconName));
    const char shortcut = PanelLayout::shortcutCharacter(index);
    const bool isLabelled = m_dependencies.config.showKeyboardShortcuts && shortcut != '\0';
    button.setShortcut(isLabelled ? std::optional(shortcut) : std::nullopt);
    disconnect(&button, &HoverButton::clicked, this, nullptr);
    connect(&button, &HoverButton::clicked, this, [this, &button] { choose(&button); });
}

QImage FloatingPanel::icon(const QString &name)
{
    auto known = m_icons.constFind(name);
    if (known == m_icons.constEnd())
        known = m_icons.insert(name, m_dependencies.icons.image(name));
    return *known;
}

void FloatingPanel::handleKey(const PopupKey &key)
{
    const auto decision = decidePanelKey(key, m_dependencies.config.enableKeyboardShortcuts);
    switch (decision.kind) {
    case PanelKeyDecision::Kind::ignore:
        break;
    case PanelKeyDecision::Kind::hide:
        hide();
        break;
    case PanelKeyDecision::Kind::openSettings:
        hide();
        Q_EMIT settingsRequested();
        break;
    case PanelKeyDecision::Kind::pick:
        if (decision.button < m_buttons.size())
            choose(m_buttons.at(decision.button));
        break;
    }
}

void FloatingPanel::choose(HoverButton *button)
{
    if (m_phase != Phase::shown || m_isChosen || !button->effectiveText)
        return;
    const auto &actions = m_dependencies.actions.actions();
    const auto action = std::find_if(actions.cbegin(), actions.cend(), [button](const auto &entry) {
        return entry.id == button->identifier;
    });
    if (action == actions.cend())
        return;
    m_isChosen = true;
    button->flash([this, handler = action->handler, text = *button->effectiveText] {
        m_window.whenKeysAreUp([handler, text] { handler(text); });
    });
}

void FloatingPanel::warmUp()
{
    if (m_phase != Phase::hidden)
        return;
    updateTheme();
    m_window.warmUp();
}

}
