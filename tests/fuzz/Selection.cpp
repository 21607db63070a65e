// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SelectionReader.h"

#include <QCoreApplication>

#include <array>

using namespace Tessel;
using namespace std::chrono_literals;

namespace {

const QList<QByteArray> atoms { "",        "TESSEL_SELECTION",
                                "TARGETS", "UTF8_STRING",
                                "INCR",    "text/uri-list",
                                "STRING",  "text/plain;charset=utf-8",
                                "x",       "x-kde-passwordManagerHint" };
FuzzedDataProvider *current = nullptr;

}

quint32 X11Connection::atom(const char *name)
{
    return quint32(atoms.indexOf(name));
}

QList<quint32> X11Connection::items(quint32, quint32)
{
    QList<quint32> items(input.ConsumeIntegralInRange(0, 5));
    for (quint32 &item : items)
        item = input.ConsumeIntegralInRange<quint32>(0, quint32(atoms.size()));
    isRefused |= items.contains(atom("text/uri-list"));
    return items;
}

QByteArray X11Connection::property(quint32, quint32, quint32 maxBytes)
{
    if (maxBytes == 16 && input.ConsumeBool()) { // whether it is a secret was asked
        isRefused = true;
        return "secret";
    }
    return QByteArray::fromStdString(input.ConsumeRandomLengthString(maxBytes));
}

/// In place of libxcb's.
xcb_get_property_reply_t *xcb_get_property_reply(xcb_connection_t *, xcb_get_property_cookie_t,
                                                 xcb_generic_error_t **)
{
    auto *reply
        = static_cast<xcb_get_property_reply_t *>(std::calloc(1, sizeof(xcb_get_property_reply_t)));
    reply->type = current->ConsumeIntegralInRange<quint32>(0, quint32(atoms.size()));
    reply->bytes_after = current->ConsumeIntegral<quint32>();
    return reply;
}

/// Whatever the owner does, in whatever order: at most one answer, and none of what is no text.
extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static int argc = 0;
    static const QCoreApplication application(argc, nullptr);
    FuzzedDataProvider input(data, size);
    current = &input;
    X11Connection connection { .input = input };
    X11SelectionReader reader(connection);
    const auto text = reader.read(XCB_ATOM_PRIMARY, 1s);
    while (!text.isFinished() && input.remaining_bytes() > 0) {
        std::array<quint32, 8> event {};
        for (quint32 &field : event)
            field = input.ConsumeIntegralInRange<quint32>(0, 9);
        const int xfixes = connection.xfixes().firstEvent;
        event[0] = quint32(
            input.PickValueInArray({ XCB_SELECTION_NOTIFY, XCB_PROPERTY_NOTIFY, xfixes }));
        connection.handler({ &event });
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Q_ASSERT(!text.isFinished() || !text.result() || !connection.isRefused);
    return 0;
}
