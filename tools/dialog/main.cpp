// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/LocalizationManager.h"
#include "dialog/DialogParts.h"
#include "dialog/ListDialog.h"
#include "dialog/MessageDialog.h"
#include "lib/dialog/DialogProtocol.h"
#include "platform/Appearance.h"
#include "platform/HelperPlatform.h"
#include "platform/QtArguments.h"
#include "windows/EditingKeys.h"
#include "windows/QtTexts.h"
#include "windows/WindowStyle.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

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
    const auto plugin = qtPluginForWindows();
    if (!plugin)
        return DialogProtocol::exitWithoutDisplay;
    QtArguments arguments(argc, argv, *plugin);
    QApplication app(arguments.count(), arguments.values());
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(u"com.tessel.app"_s);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return EXIT_FAILURE;
    const QJsonObject request = QJsonDocument::fromJson(input.readAll()).object();
    LocalizationManager::shared().takeInheritedLanguage();
    translateQtTexts();
    const auto appearance = makeAppearance();
    WindowStyle::apply(*appearance);
    installEditingKeys();
    const auto dialog = dialogFor(request);
    DialogParts::present(dialog.get());
    return QApplication::exec();
}
