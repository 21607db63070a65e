// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/SegmentedControl.h"

#include "windows/TemplateButton.h"

#include <QHBoxLayout>

namespace Tessel {

SegmentedControl::SegmentedControl(QWidget *parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins({});
    m_row->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SegmentedControl::addSegment(const QImage &image, const QString &accessibleName,
                                  const QString &toolTip)
{
    auto *button = new TemplateButton(image, 12, this);
    button->setAccessibleName(accessibleName);
    button->setToolTip(toolTip);
    button->setFixedSize(30, 22);
    const int segment = m_row->count();
    connect(button, &QAbstractButton::clicked, this,
            [this, segment] { Q_EMIT triggered(segment); });
    m_row->addWidget(button);
}

}
