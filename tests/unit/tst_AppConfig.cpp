// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/AppConfig.h"

#include <QRegularExpression>
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

    /// The action that the text of a JSON object gives.
    static ActionConfig action(const QByteArray &json)
    {
        const DecodedConfig decoded = decodeConfig(withAction(json));
        if (!decoded.config || decoded.config->customActions.size() != 1) {
            QTest::qFail(qPrintable(decoded.error), __FILE__, __LINE__);
            return {};
        }
        return decoded.config->customActions.first();
    }

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

    void encodesInFixedOrder()
    {
        const QByteArray begin
            = "{'excludedBundleIds':['org.a','org.b'],'customActions':[{'id':'x','title':'T',"
              "'iconName':'star','type':'appleScript','template':'say {text}',";
        const QByteArray settings
            = "'isEnabled':true}],'triggerKeyCode':120,'triggerModifiers':131072,"
              "'showTooltips':false,'enableKeyboardShortcuts':true,'alwaysOnTop':false,"
              "'language':'fr','showKeyboardShortcuts':true,'appIcon':'default','themeMode':'dark'"
              "}";
        for (const QByteArray &json :
             { quoted(begin + "'isEnabled':true}]}"), quoted(begin + settings),
               quoted(begin + "'regex':'a+'," + settings) }) {
            const DecodedConfig decoded = decodeConfig(json);
            QVERIFY2(decoded.config, qPrintable(decoded.error));
            QCOMPARE(encodeConfig(*decoded.config), json);
        }
    }

    void tellsSwitchesApart()
    {
        const auto config
            = [](const QByteArray &member) { return *decodeConfig(withSetting(member)).config; };
        const std::optional<bool> off = false;
        QCOMPARE(config("'showTooltips':false").showTooltips, off);
        QCOMPARE(config("'enableKeyboardShortcuts':false").enableKeyboardShortcuts, off);
        QCOMPARE(config("'alwaysOnTop':false").alwaysOnTop, off);
        QCOMPARE(config("'showKeyboardShortcuts':false").showKeyboardShortcuts, off);
    }

    void decodesLeniently()
    {
        const DecodedConfig decoded = decodeConfig(quoted(
            "\xEF\xBB\xBF { 'themeMode' : 'light',\n"
            "'unknown' : [[{'customActions': [5]}], null, -1.5e3], 'customAction': {},\r\n"
            "'appIcon': null, 'showTooltips': null, 'language': null, 'triggerKeyCode': null,\t"
            "'customActions' : [ { 'regex': null, 'isEnabled': null, 'extra': {'id': 1},"
            "'template': 'https:\\/\\/a\\/{text}', 'type': 'url', 'iconName': 'i', 'title': 't',"
            "'id': 'a' } ], 'excludedBundleIds' : [ ] } "));
        QVERIFY2(decoded.config, qPrintable(decoded.error));
        QCOMPARE(encodeConfig(*decoded.config),
                 quoted("{'excludedBundleIds':[],'customActions':[{'id':'a','title':'t',"
                        "'iconName':'i','type':'url','template':'https://a/{text}',"
                        "'isEnabled':true}],'themeMode':'light'}"));
    }

    void rejects_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("error"); // its beginning
        const auto row = [](const char *name, const QByteArray &json, const char *error) {
            QTest::newRow(name) << json << QString::fromLatin1(error);
        };
        row("no text", "", "[json.exception.parse_error");
        row("cut off", withAction("{'id':'a'}").chopped(4), "[json.exception.parse_error");
        row("more after the end", withSetting("'a':1} {"), "[json.exception.parse_error");
        row("half a surrogate pair", withSetting("'language':'\\ud83d'"), "[json.exception");
        row("not UTF-8", withSetting("'language':'\xff'"), "[json.exception.parse_error");
        row("empty object", "{}", "excludedBundleIds: missing");
        row("actions null", quoted("{'excludedBundleIds':[],'customActions':null}"),
            "customActions: must be an array");
        row("action array", withAction("[{'id':'a'}]"), "customActions[0]: must be an object");

        row("number as boolean", withSetting("'showTooltips':1"), "showTooltips: must be true");
        row("boolean as number", withSetting("'triggerKeyCode':true"),
            "triggerKeyCode: must be a whole number");
        row("above 64 bits", withSetting("'triggerModifiers':9223372036854775808"),
            "triggerModifiers: must be a whole");
        row("far out", withSetting("'triggerModifiers':1e300"), "triggerModifiers: must be");
        row("theme in capitals", withSetting("'themeMode':'Dark'"),
            "themeMode: unknown value \"Dark\"");

        const QByteArray good
            = "{'id':'a','title':'t','iconName':'i','type':'url','template':'x'},";
        row("no title", withAction(good + "{'id':'b','iconName':'i'}"),
            "customActions[1].title: missing");
        row("unknown type", withAction(good + QByteArray(good).replace("url", "URL").chopped(1)),
            "customActions[1].type: unknown value \"URL\"");
        row("old kind without template",
            withAction("{'id':'a','title':'t','iconName':'i','type':'copy'}"),
            "customActions[0].template: missing");
        row("regex a number",
            withAction(QByteArray(good).replace("'template'", "'regex':1,'template'").chopped(1)),
            "customActions[0].regex: must be a string");
    }

    void rejects()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, error);
        const DecodedConfig decoded = decodeConfig(json);
        QVERIFY(!decoded.config);
        QVERIFY2(decoded.error.startsWith(error), qPrintable(decoded.error));
    }

    void wholeNumbers()
    {
        using Limits = std::numeric_limits<qint64>;
        for (const auto &[number, expected] : { std::pair { "1.2e2", qint64 { 120 } },
                                                { "9007199254740993", 9007199254740993 },
                                                { "9223372036854775807", Limits::max() },
                                                { "-9223372036854775808", Limits::min() } }) {
            const DecodedConfig decoded
                = decodeConfig(withSetting(QByteArray("'triggerModifiers':") + number));
            QVERIFY2(decoded.config, qPrintable(decoded.error));
            QCOMPARE(*decoded.config->triggerModifiers, expected);
            QCOMPARE(*decodeConfig(encodeConfig(*decoded.config)).config->triggerModifiers,
                     expected);
        }
    }

    void oldKinds_data()
    {
        QTest::addColumn<QString>("templateText");
        QTest::addColumn<ActionType>("type");
        QTest::addColumn<QString>("expected");
        const auto row
            = [](const char *kind, const QString &text, ActionType type, const QString &expected) {
                  QTest::addRow("%s:%s", kind, qPrintable(text)) << text << type << expected;
              };
        row("command", u"ls"_s, ActionType::shellScript, u"ls"_s);
        row("command", u"LARGE_TYPE"_s, ActionType::builtin, u"LARGE_TYPE"_s);
        row("command", u"LARGE_TYPE "_s, ActionType::shellScript, u"LARGE_TYPE "_s);
        row("app", u"Notes"_s, ActionType::shellScript, u"# App action deprecated: Notes"_s);
        row("copy", u"whatever"_s, ActionType::builtin, u"COPY"_s);
        row("count", {}, ActionType::builtin, u"COUNT"_s);
        row("url", u"copy"_s, ActionType::url, u"copy"_s);
    }

    void oldKinds()
    {
        QFETCH(QString, templateText);
        const QByteArray kind = QByteArray(QTest::currentDataTag()).split(':').constFirst();
        for (const bool wasEnabled : { true, false }) {
            const ActionConfig converted
                = action("{'type':'" + kind + "','template':'" + templateText.toLatin1()
                         + "','id':'a','title':'t','iconName':'i','isEnabled':"
                         + (wasEnabled ? "true}" : "false}"));
            QTEST(converted.type, "type");
            QTEST(converted.templateText, "expected");
            QCOMPARE(converted.isEnabled, wasEnabled && kind != "app");
        }
    }

    void keepsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("emoji of several code points")
            << u"👩‍👩‍👧‍👦🏳️‍🌈"_s;
        QTest::newRow("decomposed Korean") << u"\u110B\u1175\u11AF\u110C\u1165\u11BC"_s;
        QTest::newRow("U+FEFF in front") << u"\uFEFF\uFEFFa"_s;
        QTest::newRow("U+0000") << u"a\0b"_s + QChar(u'\0');
        QTest::newRow("controls") << u"\x01\b\t\n\r\x1f\x7f\u0085\u2028"_s;
        QTest::newRow("syntax") << u"\\\"/{}[]:,\\u0041'\\\\"_s;
        QTest::newRow("noncharacters") << u"\uFFFE\uFFFF\uFDD0"_s;
    }

    void keepsText()
    {
        QFETCH(QString, text);
        AppConfig config;
        config.excludedBundleIds = { text };
        config.language = text;
        ActionConfig action;
        action.id = action.title = action.iconName = action.templateText = text;
        action.regex = text;
        config.customActions = { action };
        const DecodedConfig decoded = decodeConfig(encodeConfig(config));
        QVERIFY2(decoded.config, qPrintable(decoded.error));
        QVERIFY(*decoded.config == config);
    }

    void readsEscapes()
    {
        const ActionConfig read = action(
            "{'id':'\\ud83d\\ude00','title':'\\ufeffa\\u0000b','iconName':'\\/','type':'url',"
            "'template':'\\u1112\\u1161\\u11ab'}");
        QCOMPARE(read.id, u"😀"_s);
        QCOMPARE(read.title, u"\uFEFFa\0b"_s);
        QCOMPARE(read.iconName, u"/"_s);
        QCOMPARE(read.templateText, u"\u1112\u1161\u11ab"_s);
    }

    /// Half a surrogate pair cannot be written as UTF-8; the file must stay readable all the same.
    void survivesUnpairedSurrogates()
    {
        AppConfig config;
        config.language = QString(QChar(0xD83D)) + u'x';
        const DecodedConfig decoded = decodeConfig(encodeConfig(config));
        QVERIFY2(decoded.config, qPrintable(decoded.error));
        QVERIFY(decoded.config->language->endsWith(u'x'));
    }

    void survivesDeepNesting()
    {
        const QByteArray deep = QByteArray(200'000, '[') + QByteArray(200'000, ']');
        QVERIFY(decodeConfig(withSetting("'unknown':" + deep)).config);
        QVERIFY(!decodeConfig(QByteArray(200'000, '[')).config);
    }
};

QTEST_APPLESS_MAIN(tst_AppConfig)
#include "tst_AppConfig.moc"
