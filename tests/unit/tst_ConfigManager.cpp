// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "ConfigManager.h"

#include "DefaultActions.h"
#include "LocalizationManager.h"
#include "Log.h"
#include "NotificationCenter.h"
#include "Pattern.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

class tst_ConfigManager : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    NotificationCenter m_notifications;
    LocalizationManager m_localization;
    QStringList m_log;

    [[nodiscard]] QString path(const QString &name = QStringLiteral("config.json")) const
    {
        return m_folder->filePath(QStringLiteral("GlintClone/") + name);
    }

    [[nodiscard]] ConfigManager::Dependencies dependencies()
    {
        return { m_folder->path(), m_notifications, m_localization };
    }

    void writeFile(const QByteArray &content)
    {
        QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("GlintClone")));
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    [[nodiscard]] AppConfig fileContent() const
    {
        QFile file(path());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return decodeConfig(file.readAll()).config.value_or(AppConfig());
    }

    static ActionConfig action(const QString &id, ActionType type, const QString &templateText)
    {
        ActionConfig action;
        action.id = action.title = id;
        action.iconName = QStringLiteral("phosphor_star");
        action.type = type;
        action.templateText = templateText;
        return action;
    }

    /// A file with the actions and no setting.
    static QByteArray fileWith(const QList<ActionConfig> &actions)
    {
        AppConfig config;
        config.customActions = actions;
        return encodeConfig(config);
    }

    static QStringList ids(const QList<ActionConfig> &actions)
    {
        QStringList ids;
        for (const ActionConfig &action : actions)
            ids.append(action.id);
        return ids;
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
        m_folder = std::make_unique<QTemporaryDir>();
        m_localization.currentLanguage = LocalizationManager::Language::english;
        m_log.clear();
        Log::setSink([this](QStringView line) { m_log.append(line.toString()); });
    }

    void cleanup() { Log::setSink({}); }

    void firstStart()
    {
        QStringList announced;
        QObject context;
        connect(&m_notifications, &NotificationCenter::configDidChange, &context,
                [&] { announced.append(QStringLiteral("config")); });
        connect(&m_notifications, &NotificationCenter::themeDidChange, &context,
                [&] { announced.append(QStringLiteral("theme")); });
        connect(&m_notifications, &NotificationCenter::languageDidChange, &context,
                [&] { announced.append(QStringLiteral("language")); });
        ConfigManager config(dependencies());
        QCOMPARE(config.customActions.size(), 9);
        QCOMPARE(ids(config.customActions).first(5),
                 (QStringList { QStringLiteral("search"), QStringLiteral("copy"),
                                QStringLiteral("translate"), QStringLiteral("count"),
                                QStringLiteral("largetype") }));
        for (qsizetype i = 5; i < 9; ++i) {
            const QString id = config.customActions[i].id;
            QCOMPARE(QUuid(id).toString(QUuid::WithoutBraces).toUpper(), id);
        }
        QCOMPARE(config.customActions[2].iconName, QStringLiteral("phosphor_translate"));
        QCOMPARE(config.customActions[8].templateText.count(u'\n'), 5);
        for (const ActionConfig &action : config.customActions)
            QVERIFY(action.isEnabled && !action.regex && ConfigManager::validateAction(action));
        const QString saved = QStringLiteral("DEBUG: Config saved to ") + path();
        QCOMPARE(m_log, (QStringList { saved, saved }));
        QCOMPARE(announced, (QStringList { QStringLiteral("config"), QStringLiteral("theme") }));
        QVERIFY(fileContent().customActions == config.customActions);
        QCOMPARE(fileContent().triggerKeyCode, std::optional(qint64 { 120 }));
    }

    void keepsAllSettings()
    {
        {
            ConfigManager config(dependencies());
            config.excludedBundleIds = { QStringLiteral("org.example.Editor") };
            config.triggerKeyCode = 8;
            config.triggerModifiers = 0x1E0000;
            config.showTooltips = false;
            config.enableKeyboardShortcuts = false;
            config.alwaysOnTop = false;
            config.language = QStringLiteral("ko");
            config.showKeyboardShortcuts = false;
            config.themeMode = ThemeMode::light;
            config.appIcon = AppIconType::neon;
            config.save();
        }
        const AppConfig stored = fileContent();
        ConfigManager again(dependencies());
        QCOMPARE(again.triggerKeyCode, 8);
        QCOMPARE(again.showKeyboardShortcuts.value(), false);
        QCOMPARE(m_localization.currentLanguage, LocalizationManager::Language::korean);
        again.save();
        QVERIFY(fileContent() == stored);
    }

    void fillsInDefaults()
    {
        writeFile(fileWith(DefaultActions::standard()));
        ConfigManager config(dependencies());
        QCOMPARE(m_log,
                 QStringList(QStringLiteral("DEBUG: Config loaded. Excluded: 0, Actions: 5")));
        config.save();
        AppConfig expected;
        expected.customActions = DefaultActions::standard();
        expected.triggerKeyCode = 120;
        expected.triggerModifiers = 0;
        expected.showTooltips = expected.enableKeyboardShortcuts = expected.alwaysOnTop = true;
        expected.showKeyboardShortcuts = true;
        expected.language = QStringLiteral("en");
        expected.appIcon = AppIconType::standard;
        expected.themeMode = ThemeMode::system;
        QVERIFY(fileContent() == expected);
    }

    void replacesUnreadableContent()
    {
        writeFile(R"({"excludedBundleIds":["a"],"customActions":[{}],"themeMode":"dark"})");
        ConfigManager config(dependencies());
        QCOMPARE(m_log.first(),
                 QStringLiteral("ERROR: Failed to decode config: "
                                "customActions[0].id: missing"));
        QVERIFY(config.excludedBundleIds.isEmpty());
        QCOMPARE(config.themeMode, ThemeMode::system);
        QCOMPARE(fileContent().customActions.size(), 9);
    }

    void restoresStandardActions()
    {
        QList<ActionConfig> actions = DefaultActions::standard();
        actions.removeAt(4);
        actions.remove(1, 2);
        actions.append(action(QStringLiteral("mine"), ActionType::builtin, QStringLiteral("COPY")));
        writeFile(fileWith(actions));
        QSignalSpy savedSpy(&m_notifications, &NotificationCenter::configDidChange);
        ConfigManager config(dependencies());
        const QStringList expected { QStringLiteral("copy"),      QStringLiteral("translate"),
                                     QStringLiteral("largetype"), QStringLiteral("search"),
                                     QStringLiteral("count"),     QStringLiteral("mine") };
        QCOMPARE(ids(config.customActions), expected);
        QCOMPARE(config.customActions[1].iconName, QStringLiteral("icon_translate"));
        QCOMPARE(savedSpy.size(), 0);
        QTRY_COMPARE(savedSpy.size(), 1);
        QCOMPARE(ids(fileContent().customActions), expected);
        ConfigManager again(dependencies());
        QCoreApplication::sendPostedEvents();
        QCOMPARE(savedSpy.size(), 1);
    }

    void renamesIconsInMemory()
    {
        QList<ActionConfig> actions = DefaultActions::standard();
        const QStringList before { QStringLiteral("doc.on.doc"), QStringLiteral("airplane"),
                                   QStringLiteral("bubble.left.and.bubble.right"),
                                   QStringLiteral("Star"), QStringLiteral("custom:star") };
        const QStringList after { QStringLiteral("phosphor_copy"),
                                  QStringLiteral("phosphor_airplane"),
                                  QStringLiteral("icon_chatgpt"), QStringLiteral("Star"),
                                  QStringLiteral("custom:star") };
        for (qsizetype i = 0; i < before.size(); ++i)
            actions[i].iconName = before[i];
        const QByteArray content = fileWith(actions);
        writeFile(content);
        const ConfigManager config(dependencies());
        for (qsizetype i = 0; i < after.size(); ++i)
            QCOMPARE(config.customActions[i].iconName, after[i]);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(encodeConfig(fileContent()), content);
    }

    void appliesLanguage_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<int>("announced");
        QTest::addColumn<LocalizationManager::Language>("expected");
        using Language = LocalizationManager::Language;
        QTest::newRow("English") << QStringLiteral("en") << 1 << Language::english;
        QTest::newRow("Chinese") << QStringLiteral("zh") << 1 << Language::chinese;
        QTest::newRow("unknown") << QStringLiteral("fr") << 0 << Language::korean;
        QTest::newRow("in capitals") << QStringLiteral("ZH") << 0 << Language::korean;
    }

    void appliesLanguage()
    {
        QFETCH(QString, code);
        AppConfig stored;
        stored.customActions = DefaultActions::standard();
        stored.language = code;
        writeFile(encodeConfig(stored));
        m_localization.currentLanguage = LocalizationManager::Language::korean;
        QSignalSpy spy(&m_notifications, &NotificationCenter::languageDidChange);
        ConfigManager config(dependencies());
        QTEST(static_cast<int>(spy.size()), "announced");
        QTEST(m_localization.currentLanguage, "expected");
        config.save();
        QCOMPARE(fileContent().language, std::optional(code));
    }

    void reportsFailedSave()
    {
        ConfigManager config(dependencies());
        QVERIFY(QFile::remove(path()));
        QVERIFY(QDir().mkdir(path())); // a folder in the file's place
        m_log.clear();
        QSignalSpy spy(&m_notifications, &NotificationCenter::configDidChange);
        config.triggerKeyCode = 99;
        config.save();
        QCOMPARE(m_log.size(), 1);
        QVERIFY(m_log.first().startsWith(QStringLiteral("ERROR: Failed to save config: ")));
        QCOMPARE(spy.size(), 0);
        QCOMPARE(config.triggerKeyCode, 99);
    }

    void reportsFullDisk()
    {
        ConfigManager config(dependencies());
        QVERIFY(QFile::remove(path()));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), path()));
        m_log.clear();
        config.save();
        QCOMPARE(m_log,
                 QStringList(QStringLiteral("ERROR: Failed to save config: "
                                            "No space left on device")));
    }

    void worksWithoutFolder()
    {
        ConfigManager config({ QString(), m_notifications, m_localization });
        QCOMPARE(config.customActions.size(), 9);
        config.save();
        QVERIFY(!config.saveCustomIcon(QStringLiteral("/a.png")));
        QVERIFY(!config.getCustomIconURL(QStringLiteral("custom:a.png")));
        QCOMPARE(m_log, QStringList());
    }

    void validates_data()
    {
        QTest::addColumn<ActionType>("type");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("expected");
        const auto row = [](const char *name, ActionType type, const char *value, bool expected) {
            QTest::newRow(name) << type << QString::fromUtf8(value) << expected;
        };
        row("address", ActionType::url, "https://a/{text}", true);
        row("any scheme, nothing after it", ActionType::url, "x-a+1.b://", true);
        row("bare host", ActionType::url, "example.org", false);
        row("scheme of one letter", ActionType::url, "a://b", true);
        row("no slashes", ActionType::url, "mailto:a@b", false);
        row("digit in front", ActionType::url, "1a://b", false);
        row("no scheme", ActionType::url, "://b", false);
        row("space in front", ActionType::url, " https://b", false);
        row("later line", ActionType::url, "a\nhttps://b", false);
        row("accent", ActionType::url, "é://b", false);
        row("empty address", ActionType::url, "", false);
        row("shortcut", ActionType::shortcut, " ", true);
        row("empty shortcut", ActionType::shortcut, "", false);
        row("empty command", ActionType::shellScript, "", false);
        row("script", ActionType::appleScript, "beep", true);
        row("built-in", ActionType::builtin, "LARGE_TYPE", true);
        row("built-in, lower case", ActionType::builtin, "copy", false);
    }

    void validates()
    {
        QFETCH(ActionType, type);
        QFETCH(QString, value);
        QFETCH(bool, expected);
        ActionConfig candidate = action(QStringLiteral("a"), type, value);
        QCOMPARE(ConfigManager::validateAction(candidate), expected);
        ConfigManager config(dependencies());
        config.customActions = { candidate };
        QCOMPARE(config.getGlintActions({}).size(), expected ? 1 : 0);

        candidate.isEnabled = false;
        QVERIFY(ConfigManager::validateAction(candidate));
        config.customActions = { candidate };
        QVERIFY(config.getGlintActions({}).isEmpty());
    }

    void buildsActions()
    {
        ConfigManager config(dependencies());
        ActionConfig any
            = action(QStringLiteral("any"), ActionType::builtin, QStringLiteral("COPY"));
        any.regex = QString();
        ActionConfig faulty
            = action(QStringLiteral("faulty"), ActionType::url, QStringLiteral("a"));
        ActionConfig number = action(QStringLiteral("number"), ActionType::shellScript,
                                     QStringLiteral("echo {text}"));
        number.regex = QStringLiteral("[0-9]+");
        config.customActions = { number, faulty, any };
        QList<std::pair<ActionConfig, QString>> runs;
        const QList<GlintAction> list
            = config.getGlintActions([&runs](const ActionConfig &chosen, const QString &text) {
                  runs.append({ chosen, text });
              });
        config.customActions[0].templateText = QStringLiteral("changed");
        config.customActions.removeLast();

        QCOMPARE(list.size(), 2);
        QCOMPARE(list[0].id, QStringLiteral("number"));
        QCOMPARE(list[1].id, QStringLiteral("any"));
        QCOMPARE(list[1].iconName, QStringLiteral("phosphor_star"));
        MatchBudget budget;
        QCOMPARE(list[0].check(QStringLiteral("No. 4711, 12"), budget),
                 std::optional(QStringLiteral("4711")));
        QVERIFY(!list[0].check(QStringLiteral("none"), budget));
        QCOMPARE(list[1].check(QStringLiteral(" a\n"), budget),
                 std::optional(QStringLiteral(" a\n")));
        list[0].handler(QStringLiteral("4711"));
        list[1].handler(QStringLiteral("b"));
        QCOMPARE(runs.size(), 2);
        QVERIFY(runs[0].first == number);
        QCOMPARE(runs[0].second, QStringLiteral("4711"));
        QVERIFY(runs[1].first == any);
    }

    void storesCustomIcons()
    {
        const ConfigManager config(dependencies());
        m_log.clear();
        const QString source = m_folder->filePath(QStringLiteral("my.icon.PNG"));
        QFile file(source);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not\0an image", 12);
        file.close();
        const std::optional<QString> first = config.saveCustomIcon(source);
        const std::optional<QString> second = config.saveCustomIcon(source);
        QVERIFY(first && second && *first != *second);
        const QRegularExpression form(
            QStringLiteral("^custom:[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.PNG$"));
        QVERIFY(form.match(*first).hasMatch());
        const std::optional<QString> copy = config.getCustomIconURL(*first);
        QCOMPARE(*copy, path(QStringLiteral("Icons/") + first->mid(7)));
        QFile copied(*copy);
        QVERIFY(copied.open(QIODevice::ReadOnly));
        QCOMPARE(copied.readAll(), QByteArray("not\0an image", 12));
        QVERIFY(copied.remove());
        for (const QString &name : { *first, QStringLiteral("custom:"), second->mid(7), QString() })
            QVERIFY(!config.getCustomIconURL(name));
        QCOMPARE(m_log, QStringList());
    }

    void reportsFailedIcons()
    {
        const ConfigManager config(dependencies());
        m_log.clear();
        QVERIFY(!config.saveCustomIcon(m_folder->filePath(QStringLiteral("missing.png"))));
        QVERIFY(QDir(path(QStringLiteral("Icons"))).removeRecursively());
        QVERIFY(QFile::copy(path(), path(QStringLiteral("Icons")))); // a file in the folder's place
        QVERIFY(!config.saveCustomIcon(path()));
        QCOMPARE(m_log.size(), 2);
        for (const QString &line : m_log) {
            QVERIFY(line.startsWith(QStringLiteral("Error saving custom icon: ")));
            QVERIFY(line.size() > 30);
        }
    }
};

QTEST_GUILESS_MAIN(tst_ConfigManager)
#include "tst_ConfigManager.moc"
