// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "AppConfig.h"

#include <QRegularExpression>
#include <QTest>

#include <limits>

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
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void encodesInFixedOrder()
    {
        AppConfig config;
        config.excludedBundleIds = { QStringLiteral("org.a"), QStringLiteral("org.b") };
        ActionConfig action;
        action.id = QStringLiteral("x");
        action.title = QStringLiteral("T");
        action.iconName = QStringLiteral("star");
        action.type = ActionType::appleScript;
        action.templateText = QStringLiteral("say \"{text}\"");
        config.customActions = { action };
        const QByteArray begin
            = "{'excludedBundleIds':['org.a','org.b'],'customActions':[{'id':'x','title':'T',"
              "'iconName':'star','type':'appleScript','template':'say \\'{text}\\'',"
              "'isEnabled':true}]";
        QCOMPARE(encodeConfig(config), quoted(begin + '}'));

        config.triggerKeyCode = 120;
        config.triggerModifiers = 0x20000;
        config.showTooltips = false;
        config.enableKeyboardShortcuts = true;
        config.alwaysOnTop = false;
        config.language = QStringLiteral("fr");
        config.showKeyboardShortcuts = true;
        config.appIcon = AppIconType::standard;
        config.themeMode = ThemeMode::dark;
        QCOMPARE(encodeConfig(config),
                 quoted(begin
                        + ",'triggerKeyCode':120,'triggerModifiers':131072,'showTooltips':false,"
                          "'enableKeyboardShortcuts':true,'alwaysOnTop':false,'language':'fr',"
                          "'showKeyboardShortcuts':true,'appIcon':'default','themeMode':'dark'}"));
        QVERIFY(decodeConfig(encodeConfig(config)).config == config);
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
        AppConfig expected;
        expected.themeMode = ThemeMode::light;
        ActionConfig action;
        action.id = QStringLiteral("a");
        action.title = QStringLiteral("t");
        action.iconName = QStringLiteral("i");
        action.templateText = QStringLiteral("https://a/{text}");
        expected.customActions = { action };
        QVERIFY(*decoded.config == expected);
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
        row("array", "[]", "must be an object");
        row("empty object", "{}", "excludedBundleIds: missing");
        row("no actions", quoted("{'excludedBundleIds':[]}"), "customActions: missing");
        row("actions null", quoted("{'excludedBundleIds':[],'customActions':null}"),
            "customActions: must be an array");
        row("bundle id number", quoted("{'excludedBundleIds':['a',1],'customActions':[]}"),
            "excludedBundleIds[1]: must be a string");
        row("action string", withAction("'a'"), "customActions[0]: must be an object");
        row("action array", withAction("[{'id':'a'}]"), "customActions[0]: must be an object");

        row("number as boolean", withSetting("'showTooltips':1"), "showTooltips: must be true");
        row("boolean as number", withSetting("'triggerKeyCode':true"),
            "triggerKeyCode: must be a whole number");
        row("text as number", withSetting("'triggerKeyCode':'120'"),
            "triggerKeyCode: must be a whole number");
        row("fraction", withSetting("'triggerKeyCode':120.5"), "triggerKeyCode: must be a whole");
        row("above 64 bits", withSetting("'triggerModifiers':9223372036854775808"),
            "triggerModifiers: must be a whole");
        row("below 64 bits", withSetting("'triggerModifiers':-9223372036854775809"),
            "triggerModifiers: must be a whole");
        row("far out", withSetting("'triggerModifiers':1e300"), "triggerModifiers: must be");
        row("icon of another list", withSetting("'appIcon':'dark'"),
            "appIcon: unknown value \"dark\"");
        row("theme in capitals", withSetting("'themeMode':'Dark'"),
            "themeMode: unknown value \"Dark\"");
        row("theme a number", withSetting("'themeMode':1"), "themeMode: must be a string");

        const QByteArray good
            = "{'id':'a','title':'t','iconName':'i','type':'url','template':'x'},";
        row("no title", withAction(good + "{'id':'b','iconName':'i'}"),
            "customActions[1].title: missing");
        row("id null",
            withAction("{'id':null,'title':'t','iconName':'i','type':'url','template':'x'}"),
            "customActions[0].id: must be a string");
        row("unknown type",
            withAction(good + good
                       + "{'id':'a','title':'t','iconName':'i','type':'URL','template':'x'}"),
            "customActions[2].type: unknown value \"URL\"");
        row("old kind without template",
            withAction("{'id':'a','title':'t','iconName':'i','type':'copy'}"),
            "customActions[0].template: missing");
        row("regex a number",
            withAction("{'id':'a','title':'t','iconName':'i','type':'url','template':'x',"
                       "'regex':1}"),
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

    void wholeNumbers_data()
    {
        QTest::addColumn<QByteArray>("number");
        QTest::addColumn<qint64>("expected");
        QTest::newRow("with fraction of zero") << QByteArray("120.0") << qint64 { 120 };
        QTest::newRow("with exponent") << QByteArray("1.2e2") << qint64 { 120 };
        QTest::newRow("minus zero") << QByteArray("-0.0") << qint64 { 0 };
        QTest::newRow("no double has it")
            << QByteArray("9007199254740993") << qint64 { 9007199254740993 };
        QTest::newRow("largest") << QByteArray("9223372036854775807")
                                 << std::numeric_limits<qint64>::max();
        QTest::newRow("smallest") << QByteArray("-9223372036854775808")
                                  << std::numeric_limits<qint64>::min();
    }

    void wholeNumbers()
    {
        QFETCH(QByteArray, number);
        QFETCH(qint64, expected);
        const DecodedConfig decoded = decodeConfig(withSetting("'triggerModifiers':" + number));
        QVERIFY2(decoded.config, qPrintable(decoded.error));
        QCOMPARE(*decoded.config->triggerModifiers, expected);
        const DecodedConfig again = decodeConfig(encodeConfig(*decoded.config));
        QCOMPARE(*again.config->triggerModifiers, expected);
    }

    void oldKinds_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("templateText");
        QTest::addColumn<ActionType>("expectedType");
        QTest::addColumn<QString>("expectedTemplate");
        QTest::addColumn<bool>("staysEnabled");
        const auto row = [](const char *name, const char *kind, const char *text, ActionType type,
                            const char *expected, bool staysEnabled) {
            QTest::newRow(name) << QString::fromLatin1(kind) << QString::fromLatin1(text) << type
                                << QString::fromLatin1(expected) << staysEnabled;
        };
        row("command", "command", "ls", ActionType::shellScript, "ls", true);
        row("command, large type", "command", "LARGE_TYPE", ActionType::builtin, "LARGE_TYPE",
            true);
        row("command, nearly large type", "command", "LARGE_TYPE ", ActionType::shellScript,
            "LARGE_TYPE ", true);
        row("app", "app", "Notes", ActionType::shellScript, "# App action deprecated: Notes",
            false);
        row("copy", "copy", "whatever", ActionType::builtin, "COPY", true);
        row("count", "count", "", ActionType::builtin, "COUNT", true);
        row("url", "url", "copy", ActionType::url, "copy", true);
        row("shortcut", "shortcut", "app", ActionType::shortcut, "app", true);
    }

    void oldKinds()
    {
        QFETCH(QString, kind);
        QFETCH(QString, templateText);
        QFETCH(ActionType, expectedType);
        QFETCH(QString, expectedTemplate);
        QFETCH(bool, staysEnabled);
        for (const bool wasEnabled : { true, false }) {
            QByteArray json = "{'type':'KIND','template':'TEXT','id':'a','title':'t',"
                              "'iconName':'i','isEnabled':STATE}";
            json.replace("KIND", kind.toLatin1()).replace("TEXT", templateText.toLatin1());
            json.replace("STATE", wasEnabled ? "true" : "false");
            const ActionConfig converted = action(json);
            QCOMPARE(converted.type, expectedType);
            QCOMPARE(converted.templateText, expectedTemplate);
            QCOMPARE(converted.isEnabled, wasEnabled && staysEnabled);
        }
    }

    void keepsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("emoji of several code points")
            << QStringLiteral("👩‍👩‍👧‍👦🏳️‍🌈");
        QTest::newRow("decomposed Korean")
            << QStringLiteral("\u110B\u1175\u11AF\u110C\u1165\u11BC");
        QTest::newRow("U+FEFF in front") << QStringLiteral("\uFEFF\uFEFFa");
        QTest::newRow("U+FEFF alone") << QStringLiteral("\uFEFF");
        QTest::newRow("U+0000") << QStringLiteral("a\0b") + QChar(u'\0');
        QTest::newRow("controls") << QStringLiteral("\x01\b\t\n\r\x1f\x7f\u0085\u2028");
        QTest::newRow("syntax") << QStringLiteral("\\\"/{}[]:,\\u0041'\\\\");
        QTest::newRow("noncharacters") << QStringLiteral("\uFFFE\uFFFF\uFDD0");
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
        QCOMPARE(read.id, QStringLiteral("😀"));
        QCOMPARE(read.title, QStringLiteral("\uFEFFa\0b"));
        QCOMPARE(read.iconName, QStringLiteral("/"));
        QCOMPARE(read.templateText, QStringLiteral("\u1112\u1161\u11ab"));
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
