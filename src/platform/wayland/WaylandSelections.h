// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"

#include <QByteArray>
#include <QList>
#include <QObject>

namespace Tessel {

/// What is selected, for a program that is not in front.
class WaylandSelections : public QObject
{
    Q_OBJECT

public:
    enum class Selection { clipboard, primary };

    using QObject::QObject;

    /// Rises each time that somebody puts something on the clipboard, us included.
    [[nodiscard]] virtual qint64 changeCount() const = 0;

    /// The formats in which it can be had; none when nothing is selected.
    [[nodiscard]] virtual const QList<QByteArray> &mimeTypes(Selection selection) const = 0;

    /// Asks the owner to write what is selected to a pipe; the end to read it from, which does not
    /// wait. Not valid when nothing is selected.
    [[nodiscard]] virtual Descriptor receive(Selection selection,
                                             const QByteArray &mimeType) const = 0;

Q_SIGNALS:
    /// Something else is selected, or nothing any more. What was selected before the start is no
    /// change.
    void changed(Tessel::WaylandSelections::Selection selection);
};

}
