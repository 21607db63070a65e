// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Session.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>

namespace Tessel {

/// The program on a private desktop: its configuration and its process.
class TesselProcess
{
public:
    explicit TesselProcess(Desktop::Session &session);

    /// Settings that the configuration file is to hold besides the actions.
    QJsonObject settings;
    /// The actions; empty: one that opens "tessel-test://open?{text}".
    QJsonArray actions;

    [[nodiscard]] static QJsonObject action(const QString &id, const QString &type,
                                            const QString &templateText);
    [[nodiscard]] static QJsonObject urlAction(const QString &id, const QString &urlTemplate);
    /// One of the actions that everybody has at first.
    [[nodiscard]] static QJsonObject defaultAction(const QString &title);

    [[nodiscard]] bool writeConfiguration();

    /// Writes the configuration and starts the program; true when it says that it is up.
    [[nodiscard]] bool start();
    [[nodiscard]] Desktop::ChildProcess &process() { return *m_process; }
    [[nodiscard]] static QString path();
    /// What the program has saved.
    [[nodiscard]] QJsonObject configuration() const;

    /// Keys and scrolling are ignored for a second after a capture: returns when that is over.
    void awaitTrigger() const;

protected:
    /// The bar has come.
    void noteCapture() const { m_sinceCapture.start(); }

private:
    [[nodiscard]] QString configFile() const;

    Desktop::Session &m_session;
    Desktop::ChildProcess *m_process = nullptr;
    mutable QElapsedTimer m_sinceCapture;
};

}
