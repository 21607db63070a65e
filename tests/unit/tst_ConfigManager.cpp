// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/GlintAction.h"
#include "config/ConfigManager.h"

#include "actions/Pattern.h"
#include "base/Log.h"
#include "config/DefaultActions.h"
#include "config/LocalizationManager.h"
#include "config/NotificationCenter.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_ConfigManager : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    NotificationCenter m_notifications;
    LocalizationManager m_localization;
    QStringList m_log;

    [[nodiscard]] QString path(const QString &name = u"config.json"_s) const
    {
        return m_folder->filePath(u"GlintClone/"_s + name);
    }

    [[nodiscard]] ConfigManager::Dependencies dependencies()
    {
        return { m_folder->path(), m_notifications, m_localization };
    }

    void writeFile(const QByteArray &content)
    {
        QVERIFY(QDir(m_folder->path()).mkpath(u"GlintClone"_s));
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
        action.iconName = u"phosphor_star"_s;
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
        QTest::failOnWarning(QRegularExpression(u".?"_s));
        m_folder = std::make_unique<QTemporaryDir>();
        m_localization.currentLanguage = LocalizationManager::Language::english;
        m_log.clear();
        Log::setSink([this](QStringView line) { m_log.append(line.toString()); });
    }

    void cleanup() { Log::setSink({}); }

    void firstStart()
    {
        QSignalSpy configSpy(&m_notifications, &NotificationCenter::configDidChange);
        QSignalSpy languageSpy(&m_notifications, &NotificationCenter::languageDidChange);
        ConfigManager config(dependencies());
        QCOMPARE(config.customActions.size(), 9);
        QCOMPARE(ids(config.customActions).first(5),
                 u"search copy translate count largetype"_s.split(u' '));
        for (qsizetype i = 5; i < 9; ++i) {
            const QString id = config.customActions[i].id;
            QCOMPARE(QUuid(id).toString(QUuid::WithoutBraces).toUpper(), id);
        }
        for (const ActionConfig &action : config.customActions)
            QVERIFY(action.isEnabled && !action.regex && ConfigManager::validateAction(action));
        const QString saved = u"DEBUG: Config saved to "_s + path();
        QCOMPARE(m_log, (QStringList { saved, saved }));
        QCOMPARE(configSpy.size(), 1);
        QCOMPARE(languageSpy.size(), 0);
        QVERIFY(fileContent().customActions == config.customActions);
        QCOMPARE(fileContent().triggerKeyCode, std::optional(qint64 { 120 }));
    }

    void keepsAllSettings()
    {
        const QByteArray content
            = fileWith(DefaultActions::standard()).replace("[]", R"(["org.a"])").chopped(1)
            + R"(,"triggerKeyCode":8,"triggerModifiers":1966080,"showTooltips":false,)"
              R"("enableKeyboardShortcuts":false,"alwaysOnTop":false,"language":"ko",)"
              R"("showKeyboardShortcuts":false,"appIcon":"neon","themeMode":"light"})";
        writeFile(content);
        ConfigManager config(dependencies());
        QCOMPARE(config.triggerKeyCode, 8);
        QCOMPARE(m_localization.currentLanguage, LocalizationManager::Language::korean);
        config.save();
        QCOMPARE(encodeConfig(fileContent()), content);
    }

    void fillsInDefaults()
    {
        const QByteArray content = fileWith(DefaultActions::standard());
        writeFile(content);
        ConfigManager config(dependencies());
        QCOMPARE(m_log, QStringList(u"DEBUG: Config loaded. Excluded: 0, Actions: 5"_s));
        config.save();
        QCOMPARE(encodeConfig(fileContent()),
                 content.chopped(1)
                     + R"(,"triggerKeyCode":120,"triggerModifiers":0,"showTooltips":true,)"
                       R"("enableKeyboardShortcuts":true,"alwaysOnTop":true,"language":"en",)"
                       R"("showKeyboardShortcuts":true,"appIcon":"default","themeMode":"system"})");
    }

    void replacesUnreadableContent()
    {
        writeFile(R"({"excludedBundleIds":["a"],"customActions":[{}],"themeMode":"dark"})");
        ConfigManager config(dependencies());
        QCOMPARE(m_log.first(), u"ERROR: Failed to decode config: customActions[0].id: missing"_s);
        QVERIFY(config.excludedBundleIds.isEmpty());
        QCOMPARE(fileContent().customActions.size(), 9);
    }

    void restoresStandardActions()
    {
        QList<ActionConfig> actions = DefaultActions::standard();
        actions.removeAt(4);
        actions.remove(1, 2);
        actions.append(action(u"mine"_s, ActionType::builtin, u"COPY"_s));
        writeFile(fileWith(actions));
        QSignalSpy savedSpy(&m_notifications, &NotificationCenter::configDidChange);
        ConfigManager config(dependencies());
        const QStringList expected = u"copy translate largetype search count mine"_s.split(u' ');
        QCOMPARE(ids(config.customActions), expected);
        QCOMPARE(config.customActions[1].iconName, u"icon_translate"_s);
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
        const QStringList before = u"doc.on.doc airplane bubble.left.and.bubble.right Star "
                                   "custom:star"_s.split(u' ');
        const QStringList after = u"phosphor_copy phosphor_airplane icon_chatgpt Star "
                                  "custom:star"_s.split(u' ');
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

    void appliesLanguage()
    {
        using Language = LocalizationManager::Language;
        QSignalSpy spy(&m_notifications, &NotificationCenter::languageDidChange);
        for (const auto &[code, expected] : { std::pair { u"zh"_s, Language::chinese },
                                              { u"fr"_s, Language::korean },
                                              { u"ZH"_s, Language::korean } }) {
            AppConfig stored;
            stored.customActions = DefaultActions::standard();
            stored.language = code;
            writeFile(encodeConfig(stored));
            m_localization.currentLanguage = Language::korean;
            ConfigManager config(dependencies());
            QCOMPARE(m_localization.currentLanguage, expected);
            config.save();
            QCOMPARE(fileContent().language, std::optional(code));
        }
        QCOMPARE(spy.size(), 1);
    }

    void reportsFailedSave()
    {
        ConfigManager config(dependencies());
        m_log.clear();
        QVERIFY(QFile::remove(path()));
        QVERIFY(QDir().mkdir(path())); // a folder in the file's place
        QSignalSpy spy(&m_notifications, &NotificationCenter::configDidChange);
        config.triggerKeyCode = 99;
        config.save();
        QVERIFY(QDir().rmdir(path()) && QFile::link(u"/dev/full"_s, path()));
        config.save();
        QCOMPARE(m_log.size(), 2);
        QVERIFY(m_log[0].startsWith(u"ERROR: Failed to save config: "));
        QCOMPARE(m_log[1], u"ERROR: Failed to save config: No space left on device"_s);
        QCOMPARE(spy.size(), 0);
        QCOMPARE(config.triggerKeyCode, 99);
    }

    void worksWithoutFolder()
    {
        ConfigManager config({ QString(), m_notifications, m_localization });
        QCOMPARE(config.customActions.size(), 9);
        config.save();
        QVERIFY(!config.saveCustomIcon(u"/a.png"_s));
        QVERIFY(!config.getCustomIconURL(u"custom:a.png"_s));
        QCOMPARE(m_log, QStringList());
    }

    void validates()
    {
        ConfigManager config(dependencies());
        const auto isOffered = [&](ActionType type, const QString &value) {
            ActionConfig candidate = action(u"a"_s, type, value);
            config.customActions = { candidate };
            const bool isValid = ConfigManager::validateAction(candidate);
            if (getGlintActions(config.customActions, {}).size() != qsizetype(isValid))
                QTest::qFail("an invalid action is offered", __FILE__, __LINE__);
            return isValid;
        };
        for (const QString &url : { u"https://a/{text}"_s, u"x-a+1.b://"_s, u"a://b"_s })
            QVERIFY2(isOffered(ActionType::url, url), qUtf8Printable(url));
        for (const QString &url : { u"example.org"_s, u"mailto:a@b"_s, u" https://b"_s,
                                    u"a\nhttps://b"_s, u"é://b"_s, QString() })
            QVERIFY2(!isOffered(ActionType::url, url), qUtf8Printable(url));
        QVERIFY(isOffered(ActionType::shortcut, u" "_s));
        QVERIFY(!isOffered(ActionType::shortcut, {}));
        QVERIFY(!isOffered(ActionType::shellScript, {}));
        QVERIFY(isOffered(ActionType::builtin, u"LARGE_TYPE"_s));
        QVERIFY(!isOffered(ActionType::builtin, u"copy"_s));
    }

    void buildsActions()
    {
        ConfigManager config(dependencies());
        ActionConfig any = action(u"any"_s, ActionType::builtin, u"COPY"_s);
        any.regex = QString();
        ActionConfig number = action(u"number"_s, ActionType::shellScript, u"echo {text}"_s);
        number.regex = u"[0-9]+"_s;
        ActionConfig disabled = any;
        disabled.isEnabled = false;
        QVERIFY(ConfigManager::validateAction(disabled));
        config.customActions = { number, disabled, any };
        QList<std::pair<ActionConfig, QString>> runs;
        const QList<GlintAction> list = getGlintActions(
            config.customActions, [&runs](const ActionConfig &chosen, const QString &text) {
                runs.append({ chosen, text });
            });
        config.customActions[0].templateText = u"changed"_s;
        config.customActions.removeLast();

        QCOMPARE(list.size(), 2);
        MatchBudget budget;
        QCOMPARE(list[0].check(u"No. 4711, 12"_s, budget), std::optional(u"4711"_s));
        QVERIFY(!list[0].check(u"none"_s, budget));
        QCOMPARE(list[1].check(u" a\n"_s, budget), std::optional(u" a\n"_s));
        list[0].handler(u"4711"_s);
        list[1].handler(u"b"_s);
        QVERIFY(runs == (decltype(runs) { { number, u"4711"_s }, { any, u"b"_s } }));
    }

    void storesCustomIcons()
    {
        const ConfigManager config(dependencies());
        m_log.clear();
        const QString source = m_folder->filePath(u"my.icon.PNG"_s);
        QFile file(source);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("not\0an image", 12) == 12);
        file.close();
        const std::optional<QString> first = config.saveCustomIcon(source);
        const std::optional<QString> second = config.saveCustomIcon(source);
        QVERIFY(first && second && *first != *second);
        QVERIFY(first->contains(
            QRegularExpression(u"^custom:[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\.PNG$"_s)));
        const std::optional<QString> copy = config.getCustomIconURL(*first);
        QCOMPARE(*copy, path(u"Icons/"_s + first->mid(7)));
        QFile copied(*copy);
        QVERIFY(copied.open(QIODevice::ReadOnly));
        QCOMPARE(copied.readAll(), QByteArray("not\0an image", 12));
        QVERIFY(copied.remove());
        for (const QString &name : { *first, u"custom:"_s, second->mid(7), QString() })
            QVERIFY(!config.getCustomIconURL(name));
        QCOMPARE(m_log, QStringList());
    }

    void reportsFailedIcons()
    {
        const ConfigManager config(dependencies());
        m_log.clear();
        QVERIFY(!config.saveCustomIcon(m_folder->filePath(u"missing.png"_s)));
        QVERIFY(QDir(path(u"Icons"_s)).removeRecursively());
        QVERIFY(QFile::copy(path(), path(u"Icons"_s))); // a file in the folder's place
        QVERIFY(!config.saveCustomIcon(path()));
        QCOMPARE(m_log.filter(QRegularExpression(u"^Error saving custom icon: .{4}"_s)).size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_ConfigManager)
#include "tst_ConfigManager.moc"
