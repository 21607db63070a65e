// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/LocalizationManager.h"

#include "files/Files.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_LocalizationManager : public QObject
{
    Q_OBJECT

    const QString m_folder = u"" TESSEL_BUNDLE "/Localizations"_s;

private Q_SLOTS:
    /// A language is a file: nothing else knows its name.
    void languages()
    {
        QTemporaryDir folder;
        QVERIFY(writeFile(folder.filePath(u"en.json"_s), u"{}"_s));
        QVERIFY(writeFile(folder.filePath(u"de.json"_s), uR"({"English":"Deutsch"})"_s));
        QVERIFY(writeFile(folder.filePath(u"pt_BR.json"_s), uR"({"English":"Brasil"})"_s));
        const LocalizationManager manager(folder.path());
        QStringList names;
        for (const LocalizationManager::Language &language : manager.languages())
            names.append(language.name);
        QCOMPARE(names.mid(3), (QStringList { u"Brasil"_s, u"Deutsch"_s }));
        QVERIFY(!manager.languageFrom(u"fr"_s));
        QCOMPARE(manager.languageFrom(u"de"_s), u"de"_s);
        const auto systemLanguage = [&](const char *locale, const char *preferred) {
            qputenv("LC_ALL", locale); // Qt looks again when this changes
            qputenv("LANGUAGE", preferred);
            return manager.languageFrom(u"system"_s).value_or(QString());
        };
        QCOMPARE(systemLanguage("C.UTF-8", ""), u"en"_s);
        QCOMPARE(systemLanguage("de_AT.UTF-8", ""), u"de"_s);
        QCOMPARE(systemLanguage("de_DE.UTF-8", "fr:pt_BR:de"), u"pt_BR"_s);
    }

    void lookUp()
    {
        LocalizationManager manager(m_folder);
        QCOMPARE(manager.localizedString(u"Quit"_s), u"Quit"_s);
        manager.currentLanguage = u"zh"_s;
        QCOMPARE(manager.localizedString(u"Preferences..."_s), u"偏好设置..."_s);
        manager.currentLanguage = u"ko"_s;
        QCOMPARE(manager.localizedString(u"Must contain {text}"_s), u"{text}를 포함해야 합니다"_s);
        for (const QString &unknown : { u"Another text"_s, u"quit"_s })
            QCOMPARE(manager.localizedString(unknown), unknown);
        LocalizationManager withoutTables(u"/nonexistent"_s);
        withoutTables.currentLanguage = u"ko"_s;
        QCOMPARE(withoutTables.localizedString(u"Quit"_s), u"Quit"_s);
    }
};

QTEST_APPLESS_MAIN(tst_LocalizationManager)
#include "tst_LocalizationManager.moc"
