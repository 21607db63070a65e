// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ChildProcess.h"

#include <QString>

#include <memory>
#include <optional>

namespace Tessel::Desktop {

// The selections of one X server as any third program sees and uses them, over a connection of its
// own. Text is handed out to other programs whenever the test waits for something.
class XClipboard final
{
public:
    enum class Selection { Primary, Clipboard };

    explicit XClipboard(const QString &display);
    ~XClipboard();
    Q_DISABLE_COPY_MOVE(XClipboard)

    // The owner's window; 0 when nobody owns the selection.
    [[nodiscard]] quint32 owner(Selection selection = Selection::Clipboard) const;
    // How often the selection was taken or given up since this object was made. Taking it again
    // counts, also when the text is the same.
    [[nodiscard]] int changes(Selection selection = Selection::Clipboard);
    [[nodiscard]] bool waitForChange(int changesBefore, Selection selection = Selection::Clipboard,
                                     std::chrono::milliseconds timeout = defaultTimeout);

    // The text, of any length, read as the program does. Nothing when there is no owner, when the
    // owner has no such text, or when it does not answer in time.
    [[nodiscard]] std::optional<QString> text(Selection selection = Selection::Clipboard,
                                              std::chrono::milliseconds timeout = defaultTimeout);
    [[nodiscard]] bool waitForText(const QString &expected,
                                   Selection selection = Selection::Clipboard,
                                   std::chrono::milliseconds timeout = defaultTimeout);
    // Takes the selection. The text must fit into one request of the server, 200 KiB always do.
    void setText(const QString &text, Selection selection = Selection::Clipboard);

private:
    class Private;
    std::unique_ptr<Private> d;
};

}
