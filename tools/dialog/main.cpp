// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "DialogParts.h"
#include "DialogProtocol.h"
#include "ListDialog.h"
#include "MessageDialog.h"
#include "platform/freedesktop/PortalAppearance.h"
#include "platform/x11/X11Connection.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QPalette>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Qt would end the process with a core dump.
bool hasDisplay()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return true;
    QString error;
    return X11Connection::open(&error) != nullptr;
}

QPalette darkPalette()
{
    QPalette palette(QColor(58, 58, 60), QColor(44, 44, 46));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Highlight, QColor(10, 108, 255));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// Qt 6.4 follows the desktop's colour scheme only where it has a theme plugin for that desktop.
void followColorScheme(PortalAppearance &appearance)
{
    const bool isDarkByItself = QApplication::palette().color(QPalette::Window).lightness() < 128;
    QObject::connect(&appearance, &Appearance::changed, qApp, [&appearance, isDarkByItself] {
        if (!isDarkByItself)
            QApplication::setPalette(appearance.isDark() ? darkPalette() : QPalette());
    });
    appearance.start();
}

void print(const QJsonObject &answer)
{
    std::puts(QJsonDocument(answer).toJson(QJsonDocument::Compact).constData());
    QCoreApplication::exit(EXIT_SUCCESS); // quit() would ask the dialog, which may not be closed
}

std::unique_ptr<QWidget> dialogFor(const QJsonObject &request)
{
    if (DialogProtocol::isList(request)) {
        auto dialog = std::make_unique<ListDialog>(DialogProtocol::listRequest(request));
        QObject::connect(dialog.get(), &ListDialog::answered, qApp,
                         [](const auto &chosen) { print(DialogProtocol::listAnswer(chosen)); });
        return dialog;
    }
    auto dialog = std::make_unique<MessageDialog>(DialogProtocol::dialogRequest(request));
    QObject::connect(
        dialog.get(), &MessageDialog::answered, qApp,
        [](int button, const QString &text) { print(DialogProtocol::dialogAnswer(button, text)); });
    return dialog;
}

}

/// Shows the dialog that the request on standard input describes and prints the answer; see
/// DialogProtocol.h.
int main(int argc, char *argv[])
{
    if (!hasDisplay())
        return DialogProtocol::exitWithoutDisplay;
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(u"tessel"_s);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return EXIT_FAILURE;
    const QJsonObject request = QJsonDocument::fromJson(input.readAll()).object();
    PortalAppearance appearance;
    followColorScheme(appearance);
    const auto dialog = dialogFor(request);
    DialogParts::present(dialog.get());
    return QApplication::exec();
}
