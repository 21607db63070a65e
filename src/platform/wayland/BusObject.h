// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <functional>

class QObject;

namespace Tessel {

/// An object of another program on the session bus. Calls neither wait nor start the program. Needs
/// buses that are ready (DesktopBus.h).
struct BusObject
{
    QString service;
    QString path;
    QString interface;

    void send(const char *method, const QVariantList &arguments) const;

    /// Calls with the reply's arguments; not when the call fails, nor after the context's end.
    void call(const char *method, const QVariantList &arguments, QObject *context,
              const std::function<void(const QVariantList &reply)> &then) const;

    /// The same, without arguments when the call fails.
    void ask(const char *method, const QVariantList &arguments, QObject *context,
             const std::function<void(const QVariantList &reply)> &then) const;
};

}
