// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/QtTexts.h"

#include "base/LocalizationManager.h"
#include "config/NotificationCenter.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace Tessel {

void translateQtTexts()
{
    auto *translator = new QTranslator(qApp);
    const auto load = [translator] {
        const QLocale language(LocalizationManager::shared().currentLanguage);
        QCoreApplication::removeTranslator(translator);
        if (translator->load(language, u"qtbase"_s, u"_"_s,
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(translator);
    };
    load();
    QObject::connect(&NotificationCenter::defaultCenter(), &NotificationCenter::languageDidChange,
                     translator, load);
}

}
