// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"

namespace Tessel::Osascript {

/// Files and folders, by the desktop's file manager.
class Finder final : public Application
{
public:
    explicit Finder(Host &host);

    [[nodiscard]] QList<Object> elements(const Object &container,
                                         const QString &className) override;
    [[nodiscard]] Value property(const Object &object, const QString &name) override;
    [[nodiscard]] QString nameOf(const Object &object) const override;
    [[nodiscard]] Value perform(const Invocation &invocation) override;

private:
    void activate() override;
    [[nodiscard]] Object objectAt(const QString &path);
    /// The path that a file, a text or an element stands for.
    [[nodiscard]] static QString pathOf(const Value &value);
};

}
