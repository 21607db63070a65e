// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/AppConfig.h"

#include <QTest>

#include <limits>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_AppConfig : public QObject
{
    Q_OBJECT

    /// JSON, written with ' instead of " here.
    static QByteArray quoted(QByteArray json) { return json.replace('\'', '"'); }

    static QByteArray withSetting(const QByteArray &member)
    {
        return quoted("{'excludedBundleIds':[],'customActions':[]," + member + '}');
    }

    static QByteArray withAction(const QByteArray &action)
    {
        return quoted("{'excludedBundleIds':[],'customActions':[" + action + "]}");
    }

    static AppConfig decoded(const QByteArray &json)
    {
        Result<AppConfig> config = decodeConfig(json);
        if (!config)
            QTest::qFail(qPrintable(config.error().reason), __FILE__, __LINE__);
        return std::move(config).valueOr({});
    }

private Q_SLOTS:
    void encodesInFixedOrder()
    {
        const QByteArray begin
            = "{'excludedBundleIds':['org.a','org.b'],'customActions':[{'id':'x','title':'T',"
              "'iconName':'star','type':'appleScript','template':'say {text}',";
        const QByteArray end
            = "'isEnabled':true}],'triggerKeyCode':8,'triggerModifiers':131072,"
              "'showTooltips':false,'enableKeyboardShortcuts':true,'alwaysOnTop':false,"
              "'language':'fr','showKeyboardShortcuts':false,'appIcon':'neon','themeMode':'dark'}";
        for (const QByteArray &json :
             { quoted(begin + end), quoted(begin + "'regex':'a+'," + end) })
            QCOMPARE(encodeConfig(decoded(json)), json);
        QVERIFY(!decoded(withSetting("'showTooltips':false")).showTooltips);
        QVERIFY(!decoded(withSetting("'enableKeyboardShortcuts':false")).enableKeyboardShortcuts);
        QVERIFY(!decoded(withSetting("'alwaysOnTop':false")).alwaysOnTop);
    }

    void decodesLeniently()
    {
        const AppConfig config = decoded(quoted(
            "\xEF\xBB\xBF { 'themeMode' : 'light',\n"
            "'unknown' : [[{'customActions': [5]}], null, -1.5e3], 'customAction': {},\r\n"
            "'appIcon': null, 'showTooltips': null, 'language': null, 'triggerKeyCode': null,\t"
            "'customActions' : [ { 'regex': null, 'isEnabled': null, 'extra': {'id': 1},"
            "'template': 'https:\\/\\/a\\/{text}', 'type': 'url', 'iconName': 'i', 'title': 't',"
            "'id': 'a' } ], 'excludedBundleIds' : [ ] } "));
        AppConfig expected;
        expected.customActions
            = { { u"a"_s, u"t"_s, u"i"_s, ActionType::url, u"https://a/{text}"_s } };
        expected.themeMode = ThemeMode::light;
        QVERIFY(config == expected);
    }

    void rejects_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("reason"); // its beginning
        const auto row = [](const char *reason, const QByteArray &json) {
            QTest::newRow(reason) << json << QString::fromLatin1(reason);
        };
        row("[json.exception.parse_error", withAction("{'id':'a'}").chopped(4));
        row("excludedBundleIds: missing", "{}");
        row("customActions: must be an array",
            quoted("{'excludedBundleIds':[],'customActions':null}"));
        row("customActions[0]: must be an object", withAction("[{'id':'a'}]"));
        row("showTooltips: must be true or false", withSetting("'showTooltips':1"));
        row("showKeyboardShortcuts: must be true", withSetting("'showKeyboardShortcuts':1"));
        row("triggerKeyCode: must be a whole number", withSetting("'triggerKeyCode':true"));
        row("triggerModifiers: must be a whole number",
            withSetting("'triggerModifiers':9223372036854775808"));
        row("themeMode: unknown value \"Dark\"", withSetting("'themeMode':'Dark'"));
        const QByteArray good = "{'id':'a','title':'t','iconName':'i','type':'url','template':'x'}";
        row("customActions[1].title: missing", withAction(good + ",{'id':'b','iconName':'i'}"));
        row("customActions[1].type: unknown value \"URL\"",
            withAction(good + ',' + QByteArray(good).replace("url", "URL")));
        row("customActions[0].regex: must be a string",
            withAction(QByteArray(good).replace("'template'", "'regex':1,'template'")));
    }

    void rejects()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, reason);
        const Result<AppConfig> config = decodeConfig(json);
        QVERIFY(!config);
        QVERIFY2(config.error().reason.startsWith(reason), qPrintable(config.error().reason));
    }

    void wholeNumbers()
    {
        using Limits = std::numeric_limits<qint64>;
        for (const auto &[number, expected] : { std::pair { "1.2e2", qint64 { 120 } },
                                                { "9223372036854775807", Limits::max() },
                                                { "-9223372036854775808", Limits::min() } }) {
            const AppConfig config
                = decoded(withSetting(QByteArray("'triggerModifiers':") + number));
            QCOMPARE(config.triggerModifiers, expected);
            QCOMPARE(decoded(encodeConfig(config)).triggerModifiers, expected);
        }
    }

    void oldTypes_data()
    {
        QTest::addColumn<QString>("templateText");
        QTest::addColumn<ActionType>("type");
        QTest::addColumn<QString>("expected");
        const auto row
            = [](const char *oldType, const QString &text, ActionType type, QStringView expected) {
                  QTest::addRow("%s:%s", oldType, qPrintable(text))
                      << text << type << expected.toString();
              };
        row("command", u"ls"_s, ActionType::shellScript, u"ls");
        row("command", u"LARGE_TYPE"_s, ActionType::builtin, u"LARGE_TYPE");
        row("app", u"Notes"_s, ActionType::shellScript, u"# App action deprecated: Notes");
        row("copy", u"whatever"_s, ActionType::builtin, u"COPY");
        row("count", {}, ActionType::builtin, u"COUNT");
    }

    void oldTypes()
    {
        QFETCH(QString, templateText);
        const QByteArray oldType = QByteArray(QTest::currentDataTag()).split(':').constFirst();
        for (const bool wasEnabled : { true, false }) {
            const ActionConfig converted
                = decoded(withAction("{'type':'" + oldType + "','template':'"
                                     + templateText.toLatin1()
                                     + "','id':'a','title':'t','iconName':'i','isEnabled':"
                                     + (wasEnabled ? "true}" : "false}")))
                      .customActions.value(0);
            QTEST(converted.type, "type");
            QTEST(converted.templateText, "expected");
            QCOMPARE(converted.isEnabled, wasEnabled && oldType != "app");
        }
    }

    void keepsText()
    {
        for (const QString &text :
             { u"👩‍👩‍👧‍👦 \u110B\u1175\u11AF"_s, u"\uFEFF\uFEFFa"_s, u"a\0b\0"_s,
               u"\x01\b\t\n\r\x1f\x7f\u0085\u2028\uFFFE"_s, u"\\\"/{}[]:,\\u0041'\\\\"_s }) {
            AppConfig config;
            config.excludedBundleIds = { text };
            config.language = text;
            config.customActions = { { text, text, text, ActionType::url, text, text } };
            QVERIFY2(decoded(encodeConfig(config)) == config, qPrintable(text));
        }
        // Half a surrogate pair cannot be written as UTF-8; the file stays readable all the same.
        AppConfig config;
        config.language = QString(QChar(0xD83D)) + u'x';
        QVERIFY(decoded(encodeConfig(config)).language.endsWith(u'x'));
    }

    void survivesDeepNesting()
    {
        const QByteArray deep = QByteArray(200'000, '[') + QByteArray(200'000, ']');
        QVERIFY(decodeConfig(withSetting("'unknown':" + deep)));
        QVERIFY(!decodeConfig(QByteArray(200'000, '[')));
    }
};

QTEST_APPLESS_MAIN(tst_AppConfig)
#include "tst_AppConfig.moc"
