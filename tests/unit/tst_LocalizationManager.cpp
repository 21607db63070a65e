// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/LocalizationManager.h"

#include "files/Files.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using Language = LocalizationManager::Language;

class tst_LocalizationManager : public QObject
{
    Q_OBJECT

    const QString m_folder = u"" TESSEL_BUNDLE "/Localizations"_s;

    [[nodiscard]] QJsonObject table(const QString &code) const
    {
        return QJsonDocument::fromJson(readFile(m_folder + u'/' + code + u".json"_s)).object();
    }

private Q_SLOTS:
    void tablesHoldTheSameKeys()
    {
        const QJsonObject english = table(u"en"_s);
        QVERIFY(!english.isEmpty());
        for (auto text = english.begin(); text != english.end(); ++text)
            QCOMPARE(text.value().toString(), text.key());
        for (const LocalizationManager::LanguageInfo &language : LocalizationManager::languages) {
            const QJsonObject other = table(language.code.toString());
            QCOMPARE(other.keys(), english.keys());
            for (const auto &text : other)
                QVERIFY(!text.toString().isEmpty());
        }
    }

    void lookUp()
    {
        LocalizationManager manager(m_folder);
        QCOMPARE(manager.localizedString(u"Quit"_s), u"Quit"_s);
        manager.currentLanguage = Language::chinese;
        QCOMPARE(manager.localizedString(u"Preferences..."_s), u"偏好设置..."_s);
        manager.currentLanguage = Language::korean;
        QCOMPARE(manager.localizedString(u"Must contain {text}"_s), u"{text}를 포함해야 합니다"_s);
        for (const QString &unknown : { u"Script required"_s, u"quit"_s })
            QCOMPARE(manager.localizedString(unknown), unknown);
        LocalizationManager withoutTables(u"/nonexistent"_s);
        withoutTables.currentLanguage = Language::korean;
        QCOMPARE(withoutTables.localizedString(u"Quit"_s), u"Quit"_s);
    }
};

QTEST_APPLESS_MAIN(tst_LocalizationManager)
#include "tst_LocalizationManager.moc"
