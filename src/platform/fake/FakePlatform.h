// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"
#include "platform/CopyRequest.h"
#include "platform/EventHandlers.h"
#include "platform/Pasteboard.h"
#include "platform/Platform.h"
#include "platform/PopupHost.h"
#include "platform/StatusArea.h"
#include "platform/Workspace.h"

#include <QHash>
#include <QPromise>
#include <QStringList>

namespace Tessel {

/// A desktop that exists in memory only, records what is asked of it, and does what it is told.
class FakePlatform final : public Platform
{
public:
    class Monitor final : public EventMonitor
    {
    public:
        [[nodiscard]] std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds kinds,
                                                                     Handler handler) override;
        void send(const InputEvent &event) { m_handlers.deliver(event); }
        void setTrigger(const KeyChord &) override { }
        [[nodiscard]] TriggerRoute triggerRoute() const override { return route; }
        [[nodiscard]] QString triggerBinding() const override { return binding; }
        void passTriggerOn() override { ++passedOn; }

        bool refuses = false;
        TriggerRoute route = TriggerRoute::kept;
        QString binding;
        int passedOn = 0; ///< how often the application was to get the trigger

    private:
        EventHandlers m_handlers;
    };

    class Copier final : public CopyRequest
    {
    public:
        void prepare() override { }
        [[nodiscard]] QFuture<void> whenReady() override { return ready; }
        [[nodiscard]] QFuture<void> copySelection(const FrontApplication &application) override;
        [[nodiscard]] QFuture<bool> copyMarkedText(const FrontApplication &application,
                                                   Marked marked) override;

        QFuture<void> ready = QtFuture::makeReadyFuture();
        std::function<void()> onCopy; ///< the application's answer
        bool answers = false; ///< the application says when it has seen the shortcut
        std::function<bool(Marked)> onCopyMarked; ///< the desktop's; empty: nothing is marked
        QList<FrontApplication> requests;
    };

    class Clipboard final : public Pasteboard
    {
    public:
        [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
        [[nodiscard]] QFuture<std::optional<QString>>
        string(std::chrono::milliseconds patience) override;
        void setString(const QString &newText) override { put(newText); }

        /// An application puts a text, or something that is not text, on the pasteboard.
        void put(const std::optional<QString> &newText);

        bool ownerIsSilent = false; ///< it answers no question: patience runs out
        std::optional<QString> text;

    private:
        qint64 m_changeCount = 0;
    };

    class Desk final : public Workspace
    {
    public:
        [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override
        {
            return front;
        }
        [[nodiscard]] QList<InstalledApplication> installedApplications() override
        {
            return installed;
        }
        [[nodiscard]] std::optional<QString> bundleIdentifierOf(const QString &path) override
        {
            return identifiers.contains(path) ? std::optional(identifiers[path]) : std::nullopt;
        }
        void open(const QString &url) override { opened += url; }
        void bringToFront(quint64) override { }
        [[nodiscard]] QStringList missingAccess() const override { return missing; }

        std::optional<FrontApplication> front
            = FrontApplication { QStringLiteral("org.test.Editor"), QStringLiteral("Editor") };
        QList<InstalledApplication> installed;
        QHash<QString, QString> identifiers; ///< by path
        QStringList opened;
        QStringList missing;
    };

    class Popups final : public PopupHost
    {
    public:
        [[nodiscard]] QFuture<PopupLocation> locate() override;
        [[nodiscard]] bool isScreenLocked() const override { return false; }
        [[nodiscard]] Backdrop backdrop() const override { return behind; }
        [[nodiscard]] Qt::WindowFlags windowFlags() const override
        {
            return Qt::ToolTip | Qt::FramelessWindowHint;
        }
        void adopt(QWindow *window) override { adopted += window; }
        void present(QWindow *) override { }
        void dismiss(QWindow *) override { }
        void conceal(QWindow *) override { }
        void setActiveRegion(QWindow *, const QRect &region, int) override { active = region; }
        void takeKeys(QWindow *window,
                      const std::function<bool(const PopupKey &)> &wantsKey) override;
        void releaseKeys(QWindow *window) override;
        bool takeKeyboard(QWindow *window) override;
        void releaseKeyboard(QWindow *window) override;

        PopupLocation location { { 400, 300 }, QRect(0, 0, 800, 600), QRect(0, 0, 800, 600) };
        Backdrop behind = Backdrop::sharp;
        QList<QWindow *> adopted;
        QRect active;
        QWindow *keyboard = nullptr;
        QWindow *keys = nullptr; ///< the window that some keys go to
        std::function<bool(const PopupKey &)> wants; ///< which
    };

    class Look final : public Appearance
    {
    public:
        [[nodiscard]] bool isDark() const override { return m_isDark; }
        [[nodiscard]] double fontSize() const override { return standardFontSize; }
        void setDark(bool isDark);

    private:
        bool m_isDark = false;
    };

    class Area final : public StatusArea
    {
    public:
        void ask() override
        {
            ++asked;
            if (isThere)
                Q_EMIT becameAvailable();
        }

        bool isThere = false;
        int asked = 0;
    };

    [[nodiscard]] QString notice() const override { return {}; }
    [[nodiscard]] QByteArray qtPlugin() const override { return {}; }
    void start() override { }
    [[nodiscard]] Monitor &eventMonitor() override { return m_monitor; }
    [[nodiscard]] Copier &copyRequest() override { return m_copier; }
    [[nodiscard]] Clipboard &pasteboard() override { return m_clipboard; }
    [[nodiscard]] Desk &workspace() override { return m_desk; }
    [[nodiscard]] Popups &popupHost() override { return m_popups; }
    [[nodiscard]] Look &appearance() override { return m_look; }
    [[nodiscard]] Area &statusArea() override { return m_area; }

private:
    Monitor m_monitor;
    Copier m_copier;
    Clipboard m_clipboard;
    Desk m_desk;
    Popups m_popups;
    Look m_look;
    Area m_area;
};

}
