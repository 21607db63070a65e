// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"

namespace Tessel::Osascript {

/// Notes are Markdown files in the folder Notes of the user's documents, and in its folders.
class Notes final : public Application
{
public:
    explicit Notes(Host &host);

    [[nodiscard]] QList<Object> elements(const Object &container,
                                         const QString &className) override;
    [[nodiscard]] Value property(const Object &object, const QString &name) override;
    [[nodiscard]] QString nameOf(const Object &object) const override;
    [[nodiscard]] bool acceptsName(const QString &className) const override;
    [[nodiscard]] Value perform(const Invocation &invocation) override;

private:
    void activate() override;
    Value make(const Invocation &invocation);
    /// Of the folder that is named, or the one for all notes.
    [[nodiscard]] QString pathOf(const Value &place) const;
};

}
