// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/LocalizationManager.h"

#include <QFile>
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
        QFile file(m_folder + u'/' + code + u".json"_s);
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                              : QJsonObject();
    }

private Q_SLOTS:
    void tablesHoldTheSameKeys()
    {
        const QJsonObject english = table(u"en"_s);
        QCOMPARE(english.size(), 33);
        for (auto text = english.begin(); text != english.end(); ++text)
            QCOMPARE(text.value().toString(), text.key());
        for (const QString &code : { u"ko"_s, u"zh"_s }) {
            const QJsonObject other = table(code);
            QCOMPARE(other.keys(), english.keys());
            for (const auto &text : other)
                QVERIFY(!text.toString().isEmpty());
        }
    }

    void lookUp_data()
    {
        QTest::addColumn<Language>("language");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::newRow("Korean") << Language::korean << u"Quit"_s << u"종료"_s;
        QTest::newRow("Chinese") << Language::chinese << u"Preferences..."_s << u"偏好设置..."_s;
        QTest::newRow("English") << Language::english << u"Quit"_s << u"Quit"_s;
        QTest::newRow("the placeholder is a text like any other")
            << Language::korean << u"Must contain {text}"_s << u"{text}를 포함해야 합니다"_s;
        QTest::newRow("unknown key")
            << Language::korean << u"Script required"_s << u"Script required"_s;
        QTest::newRow("other case") << Language::korean << u"quit"_s << u"quit"_s;
    }

    void lookUp()
    {
        QFETCH(Language, language);
        QFETCH(QString, key);
        QFETCH(QString, text);
        LocalizationManager manager(m_folder);
        manager.currentLanguage = language;
        QCOMPARE(manager.localizedString(key), text);
    }

    void missingTablesGiveTheKeys()
    {
        LocalizationManager manager(u"/nonexistent"_s);
        manager.currentLanguage = Language::korean;
        QCOMPARE(manager.localizedString(u"Quit"_s), u"Quit"_s);
    }
};

QTEST_APPLESS_MAIN(tst_LocalizationManager)
#include "tst_LocalizationManager.moc"
