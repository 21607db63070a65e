// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"

#include <QStringList>

namespace Tessel::Osascript {

/// Messages are composed in the desktop's mail program, by mailto: (RFC 6068), when they have all
/// their parts: when they are sent, or when the script has ended.
class Mail final : public Application
{
public:
    explicit Mail(Host &host);

    [[nodiscard]] QList<Object> elements(const Object &container,
                                         const QString &className) override;
    [[nodiscard]] Value property(const Object &object, const QString &name) override;
    [[nodiscard]] bool setProperty(const Object &object, const QString &name,
                                   const Value &value) override;
    [[nodiscard]] Value perform(const Invocation &invocation) override;
    void finish() override;

private:
    struct Message
    {
        QString subject;
        QString content;
        QStringList to;
        QStringList cc;
        QStringList bcc;
        bool isShown = false;
    };

    Value make(const Invocation &invocation);
    Value addRecipient(const Invocation &invocation, const QString &className);
    [[nodiscard]] Message &messageOf(const Value &value);
    void show(Message &message);
    [[nodiscard]] static QString address(const Message &message);

    QList<Message> m_messages; ///< their elements' keys are their places here, from 1
};

}
