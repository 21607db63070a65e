// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/WindowCommands.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

namespace Tessel {

void addWindowCommands(QWidget *window)
{
    for (const Qt::Modifier command : { Qt::CTRL, Qt::META }) {
        QObject::connect(new QShortcut(command | Qt::Key_W, window), &QShortcut::activated, window,
                         &QWidget::close);
        QObject::connect(new QShortcut(command | Qt::Key_Q, window), &QShortcut::activated, qApp,
                         &QApplication::quit);
    }
}

}
