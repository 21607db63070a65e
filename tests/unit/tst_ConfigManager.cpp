// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ConfigManager.h"

#include "actions/GlintAction.h"
#include "actions/Pattern.h"
#include "base/BaseFolders.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/DefaultActions.h"
#include "config/NotificationCenter.h"
#include "files/Files.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

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

    static ActionConfig action(const QString &id, ActionType type, const QString &templateText)
    {
        return { id, id, u"phosphor_star"_s, type, templateText };
    }

    /// A file with the actions.
    static QByteArray fileWith(const QList<ActionConfig> &actions)
    {
        AppConfig config;
        config.customActions = actions;
        return encodeConfig(config);
    }

    static QString ids(const QList<ActionConfig> &actions)
    {
        QStringList ids;
        for (const ActionConfig &action : actions)
            ids.append(action.id);
        return ids.join(u' ');
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_localization.currentLanguage = u"en"_s;
        m_log.clear();
        Log::setSink([this](QStringView line) { m_log.append(line.toString()); });
    }

    void cleanup() { Log::setSink({}); }

    void firstStart()
    {
        QSignalSpy configSpy(&m_notifications, &NotificationCenter::configDidChange);
        QSignalSpy languageSpy(&m_notifications, &NotificationCenter::languageDidChange);
        ConfigManager config(dependencies());
        const QRegularExpression uuid(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
        QCOMPARE(ids(config.customActions.first(5)), u"search copy translate count largetype"_s);
        QCOMPARE(ids(config.customActions.sliced(5)).split(u' ').filter(uuid).size(), 4);
        for (const ActionConfig &action : config.customActions)
            QVERIFY(action.isEnabled && !action.regex && ConfigManager::validateAction(action));
        const QString saved = u"DEBUG: Config saved to "_s + path();
        QCOMPARE(m_log, (QStringList { saved, saved }));
        QCOMPARE(configSpy.size(), 1);
        QCOMPARE(languageSpy.size(), 0);
        QCOMPARE(readFile(path()), encodeConfig(config));
    }

    void keepsSettingsAndFillsInDefaults()
    {
        const QByteArray actions = fileWith(DefaultActions::standard());
        const QByteArray lists = actions.left(actions.indexOf(R"(,"triggerKeyCode")"));
        const QByteArray defaults
            = R"(,"triggerKeyCode":120,"triggerModifiers":0,"showTooltips":true,)"
              R"("enableKeyboardShortcuts":true,"alwaysOnTop":true,"language":"en",)"
              R"("showKeyboardShortcuts":true,"appIcon":"default","themeMode":"system"})";
        QByteArray others = QByteArray(defaults).replace("true", "false").replace("120", "8");
        others.replace("default", "neon").replace("system", "dark").replace("en\"", "ko\"");
        QByteArray unknown = QByteArray(defaults).replace("en\"", "fr\"");
        QSignalSpy languageSpy(&m_notifications, &NotificationCenter::languageDidChange);
        for (const auto &[before, after] : { std::pair { QByteArray("}"), defaults },
                                             { others, others },
                                             { unknown, unknown } }) {
            QVERIFY(writeFile(path(), lists + before));
            ConfigManager config(dependencies());
            QCOMPARE(m_log.last(), u"DEBUG: Config loaded. Excluded: 0, Actions: 5"_s);
            config.save();
            QCOMPARE(readFile(path()), lists + after);
        }
        QCOMPARE(m_localization.currentLanguage, u"ko"_s); // which the unknown one keeps
        QCOMPARE(languageSpy.size(), 2);
    }

    void restoresStandardActions()
    {
        QList<ActionConfig> actions = DefaultActions::standard();
        actions.removeAt(4);
        actions.remove(1, 2);
        actions.append(action(u"mine"_s, ActionType::builtin, u"COPY"_s));
        actions.last().iconName = u"doc.on.doc"_s;
        QVERIFY(writeFile(path(), fileWith(actions)));
        QSignalSpy savedSpy(&m_notifications, &NotificationCenter::configDidChange);
        ConfigManager config(dependencies());
        const QString expected = u"copy translate largetype search count mine"_s;
        QCOMPARE(ids(config.customActions), expected);
        QCOMPARE(config.customActions[1].iconName, u"icon_translate"_s);
        QCOMPARE(config.customActions[5].iconName, u"phosphor_copy"_s);
        QCOMPARE(savedSpy.size(), 0);
        QTRY_COMPARE(savedSpy.size(), 1);
        QCOMPARE(readFile(path()), encodeConfig(config));
        ConfigManager again(dependencies());
        QCoreApplication::sendPostedEvents();
        QCOMPARE(savedSpy.size(), 1);
    }

    void announcesShownShortcuts()
    {
        ConfigManager config(dependencies());
        QList<bool> seen;
        const auto watch = config.showKeyboardShortcuts.onValueChanged(
            [&] { seen.append(config.showKeyboardShortcuts); });
        config.showKeyboardShortcuts = false;
        QVERIFY(writeFile(path(), fileWith(DefaultActions::standard())));
        config.load();
        QCOMPARE(seen, (QList { false, true }));
    }

    void reportsFailedSave()
    {
        ConfigManager config(dependencies());
        const QByteArray before = readFile(path());
        m_log.clear();
        QSignalSpy spy(&m_notifications, &NotificationCenter::configDidChange);
        config.customActions += config.customActions;
        std::signal(SIGXFSZ, SIG_IGN); // no room for the new content, but for some of it
        rlimit limit = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
        const rlimit small { rlim_t(before.size()) + 100, limit.rlim_max };
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        config.save();
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        QCOMPARE(readFile(path()), before);
        QVERIFY(QFile::remove(path()) && QDir().mkdir(path())); // a folder in the file's place
        config.save();
        QCOMPARE(m_log,
                 (QStringList { u"ERROR: Failed to save config: File too large"_s,
                                u"ERROR: Failed to save config: Is a directory"_s }));
        QCOMPARE(config.saveFailure(), u"Is a directory"_s);
        QCOMPARE(spy.size(), 0);
        QVERIFY(QDir().rmdir(path()));
        config.save();
        QCOMPARE(config.saveFailure(), QString());
        config.customActions.resize(1); // nothing of the longer content stays
        config.save();
        QCOMPARE(readFile(path()), encodeConfig(config));
    }

    /// A FIFO would be waited for, and /dev/zero read until the memory is full.
    void leavesAloneWhatIsNoFile()
    {
        using Make = bool (*)(const char *);
        const Make things[] = {
            [](const char *name) { return mkfifo(name, 0600) == 0; },
            [](const char *name) { return symlink("/dev/zero", name) == 0; },
            [](const char *name) { return mkdir(name, 0700) == 0; },
            [](const char *name) {
                return mknod(name, S_IFREG | 0600, 0) == 0 && truncate(name, 257 << 20) == 0;
            },
        };
        for (const Make &make : things) {
            m_folder = std::make_unique<QTemporaryDir>();
            m_log.clear();
            QVERIFY(QDir().mkpath(path({})) && make(qPrintable(path())));
            const QFileInfo before(path());
            ConfigManager config(dependencies());
            QCOMPARE(config.customActions.size(), 9);
            QVERIFY(m_log.size() == 1 && m_log[0].startsWith(u"ERROR: Config left alone: "));
            QVERIFY(config.loadNotice() && config.loadNotice()->text.endsWith(path()));
            config.save();
            QVERIFY(!config.saveFailure().isEmpty());
            QVERIFY(QFileInfo(path()) == before && QFileInfo(path()).size() == before.size());
        }
    }

    void keepsCopies()
    {
        auto withHistory = dependencies();
        withHistory.history = m_folder->filePath(u"state/tessel"_s);
        const auto copy = [&](const QString &name) {
            return readFile(withHistory.history + u"/config-%1.json"_s.arg(name));
        };
        QByteArray good;
        {
            ConfigManager config(withHistory);
            for (const int key : { 1, 2, 3, 4, 5, 6, 6 }) {
                config.triggerKeyCode = key;
                config.save();
            }
            good = encodeConfig(config);
        }
        QCOMPARE(QDir(withHistory.history).count(), 2 + 5U);
        QCOMPARE(copy(u"1"_s), good);
        QVERIFY(copy(u"5"_s).contains(R"("triggerKeyCode":2,)"));
        for (const QString &name : { u""_s, u"/config-1.json"_s })
            QVERIFY(!(QFileInfo(withHistory.history + name).permissions() & 0x77));

        QVERIFY(writeFile(path(), good + ','));
        {
            ConfigManager config(withHistory);
            QCOMPARE(config.customActions.size(), 9);
            QVERIFY(config.loadNotice()->text.endsWith(u"/config-before-defaults.json"));
            for (const int key : { 1, 2, 3, 4, 5, 6 }) {
                config.triggerKeyCode = key;
                config.save();
            }
        }
        QCOMPARE(copy(u"before-defaults"_s), good);
    }

    void relativeFoldersDoNotCount()
    {
        qputenv("XDG_CACHE_HOME", "relative");
        qputenv("XDG_CONFIG_DIRS", "/a:b::/c");
        BaseFolders::dropRelative();
        QVERIFY(!qEnvironmentVariableIsSet("XDG_CACHE_HOME"));
        QCOMPARE(qgetenv("XDG_CONFIG_DIRS"), "/a:/c");
    }

    void offersValidActions()
    {
        QList<ActionConfig> actions { action(u"host"_s, ActionType::url, u"example.org"_s),
                                      action(u"path"_s, ActionType::url, u"mailto:a@b"_s),
                                      action(u"url"_s, ActionType::url, u"x-a+1.b://"_s),
                                      action(u"name"_s, ActionType::shortcut, u" "_s),
                                      action(u"none"_s, ActionType::shellScript, {}),
                                      action(u"type"_s, ActionType::builtin, u"LARGE_TYPE"_s),
                                      action(u"case"_s, ActionType::builtin, u"copy"_s) };
        actions[2].regex = QString(); // like none
        QString offered;
        MatchBudget budget;
        for (const GlintAction &action : getGlintActions(actions, {})) {
            offered += action.id + u' ';
            QCOMPARE(action.check(u" a\n"_s, budget), std::optional(u" a\n"_s));
        }
        QCOMPARE(offered, u"url name type "_s);
        ActionConfig disabled = actions.last();
        disabled.isEnabled = false;
        QVERIFY(ConfigManager::validateAction(disabled));
        QVERIFY(getGlintActions({ disabled }, {}).isEmpty());
    }

    void storesCustomIcons()
    {
        const ConfigManager config(dependencies());
        m_log.clear();
        const QString source = m_folder->filePath(u"my.icon.PNG"_s);
        QVERIFY(writeFile(source, QByteArray("not\0an image", 12)));
        const Result<QString> first = config.saveCustomIcon(source);
        const Result<QString> second = config.saveCustomIcon(source);
        QVERIFY(first && second && *first != *second);
        QVERIFY(first->startsWith(u"custom:") && first->endsWith(u".PNG"));
        const std::optional<QString> copy = config.getCustomIconURL(*first);
        QCOMPARE(copy, path(u"Icons/"_s + first->mid(7)));
        QCOMPARE(readFile(*copy), QByteArray("not\0an image", 12));
        QVERIFY(QFile::remove(*copy));
        for (const QString &name : { *first, u"custom:"_s, second->mid(7) })
            QVERIFY(!config.getCustomIconURL(name));
        QCOMPARE(m_log, QStringList());

        QVERIFY(!config.saveCustomIcon(m_folder->filePath(u"missing.png"_s)));
        QVERIFY(QDir(path(u"Icons"_s)).removeRecursively());
        QVERIFY(writeFile(path(u"Icons"_s), ""_ba)); // a file in the folder's place
        QVERIFY(!config.saveCustomIcon(source));
        QCOMPARE(m_log.filter(QRegularExpression(u"^Error saving custom icon: .{4}"_s)).size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_ConfigManager)
#include "tst_ConfigManager.moc"
