// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/TextContext.h"
#include "osascript/values/TextElements.h"
#include "osascript/values/Value.h"

namespace Tessel::Osascript {

/// The elements of a list or a text, by class: items, characters, words, paragraphs, text items, or
/// the items of a list that have the class.
class ValueElements final
{
public:
    /// Raises -1728 when the value has no such elements.
    ValueElements(Value container, QString className, const TextContext &context);

    [[nodiscard]] QList<Value> all() const;
    /// From 1, or from -1 backwards. Raises -1728.
    [[nodiscard]] Value at(qint64 index) const;
    /// The elements from one to the other, in either order; a stretch of a text when the class is
    /// text. Raises -1728.
    [[nodiscard]] Value range(qint64 first, qint64 last) const;
    [[nodiscard]] qsizetype count() const;
    /// The stretch of the text that an element takes; must be elements of a text.
    [[nodiscard]] TextRange rangeAt(qint64 index) const;

private:
    [[nodiscard]] Value element(qsizetype position) const;
    [[nodiscard]] qsizetype position(qint64 index) const;

    Value m_container;
    QString m_className;
    QList<Value> m_items; ///< of a list
    QList<TextRange> m_ranges; ///< of a text
};

/// ValueElements::at(), without finding all elements where that can be avoided.
[[nodiscard]] Value elementAt(const Value &container, const QString &className, qint64 index,
                              const TextContext &context);

/// The stretch of the text from the start of one to the end of the other.
[[nodiscard]] Value textBetween(const QString &text, TextRange first, TextRange last);

}
