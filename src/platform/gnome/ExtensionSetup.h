// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/CommandRunner.h"
#include "platform/Platform.h"

#include <QTimer>
#include <QVariantMap>

#include <optional>

namespace Tessel {

class ExtensionFiles;
class ShellBridge;

enum class ExtensionState {
    unknown, ///< not asked yet, or the session is locked, where the shell has no extensions
    enabled, ///< it serves us, or is about to
    off, ///< the user has not switched it on
    waiting, ///< the shell takes it at the next login
    refused, ///< by this version of the shell
    absent,
    impossible, ///< the compositor is mutter, the shell another
};

/// What the shell's GetExtensionInfo says; `hasFiles`: there are some where it looks for
/// extensions.
[[nodiscard]] ExtensionState extensionState(const QVariantMap &info, bool hasFiles);

/// Finds out, without waiting, why the shell's extension does not serve us, and installs it or
/// switches it on when the user wants that. Keeps the user's copy as new as the program.
class ExtensionSetup final : public QObject
{
    Q_OBJECT

public:
    explicit ExtensionSetup(const ShellBridge &bridge);
    ~ExtensionSetup() override;

    /// Needs the application object.
    void start();

    [[nodiscard]] bool isMissing() const; ///< for certain
    [[nodiscard]] std::optional<DesktopSetup> offer(); ///< what the user should know, if anything

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void setLocked(bool isLocked);

private:
    void check();
    void askShell();
    void renewCopy();
    void setState(ExtensionState state);
    [[nodiscard]] DesktopSetup whyNot(const QString &finding) const;
    [[nodiscard]] DesktopSetup offerTo(const QString &button, const QString &finding);
    [[nodiscard]] QFuture<QString> carryOut();
    [[nodiscard]] QString resultOf(const Result<CommandResult> &enabling);

    const ShellBridge &m_bridge;
    std::unique_ptr<ExtensionFiles> m_files; ///< once started
    ExtensionState m_state = ExtensionState::unknown;
    QString m_shellVersion;
    bool m_takesExtensions = true; ///< the user may have switched them all off
    QTimer m_patience; ///< until it ought to have attached
    CommandRunner m_tool;
};

}
