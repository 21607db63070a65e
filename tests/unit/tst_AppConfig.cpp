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

    void rejects()
    {
        const QByteArray good = "{'id':'a','title':'t','iconName':'i','type':'url','template':'x'}";
        for (const auto &[json, reason] : {
                 std::pair { withAction("{'id':'a'}").chopped(4),
                             u"[json.exception.parse_error"_s },
                 { "{}", u"excludedBundleIds: missing"_s },
                 { quoted("{'excludedBundleIds':[],'customActions':null}"),
                   u"customActions: must be an array"_s },
                 { withAction("[]"), u"customActions[0]: must be an object"_s },
                 { withAction(good + ",{'id':'b'}"), u"customActions[1].title: missing"_s },
                 { withAction(QByteArray(good).replace("url", "URL")),
                   u"customActions[0].type: unknown value \"URL\""_s },
                 { withSetting("'showTooltips':1"), u"showTooltips: must be true or false"_s },
                 { withSetting("'triggerKeyCode':true"), u"triggerKeyCode: must be a whole"_s },
                 { withSetting("'triggerModifiers':9223372036854775808"),
                   u"triggerModifiers: must be a whole number"_s },
                 { withSetting("'themeMode':'Dark'"), u"themeMode: unknown value \"Dark\""_s },
             }) {
            const Result<AppConfig> config = decodeConfig(json);
            QVERIFY2(!config && config.error().reason.startsWith(reason), qPrintable(reason));
        }
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

    void oldTypes()
    {
        for (const auto &[oldType, before, type, after] : {
                 std::tuple { "command", "ls", ActionType::shellScript, u"ls"_s },
                 { "command", "LARGE_TYPE", ActionType::builtin, u"LARGE_TYPE"_s },
                 { "app", "Notes", ActionType::shellScript, u"# App action deprecated: Notes"_s },
                 { "copy", "whatever", ActionType::builtin, u"COPY"_s },
                 { "count", "", ActionType::builtin, u"COUNT"_s },
             }) {
            for (const bool isEnabled : { true, false }) {
                ActionConfig expected { u"a"_s, u"t"_s, u"i"_s, type, after };
                expected.isEnabled = isEnabled && qstrcmp(oldType, "app") != 0;
                QCOMPARE(decoded(withAction(QByteArray("{'id':'a','title':'t','iconName':'i',")
                                            + "'type':'" + oldType + "','template':'" + before
                                            + "','isEnabled':" + (isEnabled ? "true}" : "false}")))
                             .customActions.value(0),
                         expected);
            }
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

    /// Far enough, the JSON library would run out of stack.
    void limitsNesting()
    {
        const auto nested = [](int depth) {
            return "'unknown':" + QByteArray(depth, '[') + QByteArray(depth, ']');
        };
        QVERIFY(decodeConfig(withSetting(nested(63))));
        for (const QByteArray &deep :
             { withSetting(nested(64)), withSetting(nested(100'000)),
               withAction('{' + nested(100'000) + '}'), QByteArray(100'000, '[') }) {
            const Result<AppConfig> config = decodeConfig(deep);
            QVERIFY(!config && config.error().reason == u"nested more than 64 deep");
        }
    }
};

QTEST_APPLESS_MAIN(tst_AppConfig)
#include "tst_AppConfig.moc"
