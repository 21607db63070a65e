// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/PopupWindow.h"

#include "platform/PopupHost.h"

#include <QWindow>

namespace Tessel {

PopupWindow::PopupWindow(PopupHost &host, Qt::WindowFlags flags)
    : QWidget(nullptr, host.windowFlags() | flags)
    , m_host(host)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
}

PopupWindow::~PopupWindow()
{
    if (isVisible())
        m_host.dismiss(windowHandle());
}

void PopupWindow::makeNative()
{
    if (windowHandle())
        return;
    winId();
    m_host.adopt(windowHandle());
}

void PopupWindow::setVisible(bool willBeVisible)
{
    if (willBeVisible != isVisible()) {
        makeNative();
        if (willBeVisible) {
            windowHandle()->setGeometry(geometry()); // Qt would give it to the window later
            m_host.present(windowHandle());
        } else {
            m_host.dismiss(windowHandle());
        }
    }
    QWidget::setVisible(willBeVisible);
}

}
