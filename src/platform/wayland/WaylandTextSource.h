// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandDataControl.h"

#include <QHash>

#include <memory>
#include <vector>

namespace Tessel {

class PipeWriter;

/// Owns the clipboard and hands out its text, to any number of readers at their own pace. The bytes
/// go out as they are, and as STRING in ISO 8859-1 if that can hold them. The process ignores
/// SIGPIPE from then on, so that readers may leave.
class WaylandTextSource final : public QObject
{
    Q_OBJECT

public:
    explicit WaylandTextSource(WaylandDataControl &dataControl);
    ~WaylandTextSource() override;

    /// Becomes the owner. Readers of the text before still get that.
    void setText(const QByteArray &utf8);

    /// Whether it is the owner, or somebody is being served.
    [[nodiscard]] bool isInUse() const;

Q_SIGNALS:
    void released(); ///< it is not in use any more

private:
    struct Listeners;

    void send(const QByteArray &mimeType, Descriptor pipe);
    void cancel();
    void remove(const PipeWriter *writer);

    WaylandDataControl &m_dataControl;
    WaylandPtr<zwlr_data_control_source_v1> m_source; ///< while it is the owner
    QHash<QByteArray, QByteArray> m_contents; ///< by MIME type
    std::vector<std::unique_ptr<PipeWriter>> m_writers; ///< the oldest first
};

}
