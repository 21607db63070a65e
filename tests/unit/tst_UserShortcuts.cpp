// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/shortcuts/UserShortcuts.h"

#include "files/Files.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr auto normal = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// A folder of shortcuts in a folder that only this user can write.
struct Folder
{
    QTemporaryDir root;
    QString path = root.filePath(u"shortcuts"_s);
    UserShortcuts shortcuts { u"/nowhere/helpers"_s, path };

    Folder() { QDir().mkdir(path, normal); }

    /// The shortcut's output, and why it failed.
    [[nodiscard]] std::pair<QByteArray, QString> run(const QByteArray &input = {})
    {
        const auto outcome = shortcuts.run(u"s"_s, input);
        return { outcome.output, outcome.result ? QString() : outcome.result.error().reason };
    }

    void add(const QString &fileName, const QByteArray &script,
             QFile::Permissions permissions = normal,
             const QByteArray &interpreter = "#!/bin/sh\n") const
    {
        const QString file = path + u'/' + fileName;
        QVERIFY(writeFile(file, interpreter + script) && QFile::setPermissions(file, permissions));
    }
};

}

class tst_UserShortcuts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names()
    {
        const QString decomposed = u"일정 추가"_s.normalized(QString::NormalizationForm_D);
        Folder folder;
        folder.add(decomposed + u".sh"_s, "cat");
        folder.add(u"b.py"_s, "");
        folder.add(u"b.sh"_s, "");
        folder.add(u"a 1.0.sh"_s, "");
        folder.add(u".hidden"_s, "");
        folder.add(u"backup.sh~"_s, "");
        folder.add(u"two\nlines.sh"_s, "");
        folder.add(u"notes.txt"_s, "", QFile::ReadOwner);
        folder.add(u"shared.sh"_s, "", normal | QFile::WriteGroup);
        QVERIFY(QDir(folder.path).mkdir(u"folder"_s));
        QFile::link(u"/bin/cat"_s, folder.path + u"/linked"_s);
        const QStringList expected { u"a 1.0"_s, u"b"_s, u"linked"_s, u"일정 추가"_s };
        QCOMPARE(folder.shortcuts.names(), expected);
        QCOMPARE(folder.shortcuts.run(decomposed, u"text"_s).valueOr({}), u"text"_s);
        QVERIFY(folder.run().second.startsWith(u"There is no shortcut “s” in "));
    }

    void inputAndOutput_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QString>("failure");
        const QByteArray large(200 << 10, 'x');
        const QByteArray most((128 << 10) - qsizetype(sizeof "SHORTCUT_INPUT="), 'x');
        const auto row = [](const char *name, const QByteArray &script, const QByteArray &input,
                            const QByteArray &output, const QString &failure = {}) {
            QTest::newRow(name) << script << input << output << failure;
        };
        const QByteArray bytes("a\xff\0b\n", 5);
        const QByteArray text = "\xed\x95\x9c\n\"$x";
        row("standard input", "cat", bytes, bytes);
        row("variable", "printf %s \"$SHORTCUT_INPUT\"", text, text);
        row("largest variable", "echo ${#SHORTCUT_INPUT}", most,
            QByteArray::number(most.size()) + '\n');
        row("too large for a variable", "echo ${SHORTCUT_INPUT-unset} $(wc -c)", large,
            "unset 204800\n");
        row("does not read", "echo done", large, "done\n");
        row("fails", "echo half; exit 3", {}, "half\n",
            u"The shortcut “s” failed with status 3."_s);
        row("finds helpers first", "echo ${PATH%%:*}", {}, "/nowhere/helpers\n");
    }

    void inputAndOutput()
    {
        QFETCH(QByteArray, script);
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, output);
        QFETCH(QString, failure);
        Folder folder;
        folder.add(u"s.sh"_s, script);
        QCOMPARE(folder.run(input), std::pair(output, failure));
    }

    /// execve() refuses both.
    void withoutInterpreter()
    {
        Folder folder;
        folder.add(u"text"_s, "echo \"$(cat)!\"", normal, {});
        folder.add(u"s"_s, QByteArray("\0\1\2\n", 4), normal, {});
        QCOMPARE(folder.shortcuts.run(u"text"_s, u"a"_s).valueOr({}), u"a!\n"_s);
        QVERIFY(folder.run().second.startsWith(u"The shortcut “s” cannot be run: "));
    }

    void trust_data()
    {
        QTest::addColumn<QString>("shared"); // the folder that others can write
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("isTrusted");
        QTest::newRow("nothing") << u"."_s << 0700 << true;
        QTest::newRow("file") << u"far/target/s.sh"_s << 0722 << false;
        QTest::newRow("target") << u"far/target"_s << 0770 << false;
        QTest::newRow("above the target") << u"far"_s << 0777 << false;
        QTest::newRow("above the shortcuts") << u"."_s << 0777 << false;
        QTest::newRow("with a link on the way") << u"links"_s << 0777 << false;
        QTest::newRow("sticky") << u"far"_s << 01777 << true;
    }

    void trust()
    {
        QFETCH(QString, shared);
        QFETCH(int, mode);
        QFETCH(bool, isTrusted);
        Folder folder;
        for (const char *path : { "far", "far/target", "links" })
            QVERIFY(QDir(folder.root.path()).mkdir(QString::fromLatin1(path), normal));
        QVERIFY(QFile::link(folder.root.filePath(u"far/target"_s),
                            folder.root.filePath(u"links/way"_s)));
        folder.add(u"../far/target/s.sh"_s, "echo ran");
        QVERIFY(QFile::link(u"../links/way/s.sh"_s, folder.path + u"/s.sh"_s));
        const QByteArray name = QFile::encodeName(folder.root.filePath(shared));
        QCOMPARE(chmod(name.constData(), static_cast<mode_t>(mode)), 0);
        const auto [output, failure] = folder.run();
        QCOMPARE(output, QByteArray(isTrusted ? "ran\n" : ""));
        QCOMPARE(folder.shortcuts.names(), isTrusted ? QStringList { u"s"_s } : QStringList());
        QCOMPARE(failure.contains(u"can be written by others"), !isTrusted);
    }

    void samplesComeOnce()
    {
        QTemporaryDir root;
        const QString folder = root.filePath(u"new/shortcuts"_s);
        UserShortcuts shortcuts(QStringLiteral(TESSEL_BUILD_HELPERS), folder);
        const QStringList samples { u"Append to Journal"_s, u"Save as Text File"_s,
                                    u"일정 추가"_s };
        QCOMPARE(shortcuts.names(), samples);
        QVERIFY(QFile::remove(folder + u"/Save as Text File.sh"_s));
        const QString own = folder + u"/일정 추가"_s;
        QVERIFY(QFile::copy(folder + u"/Append to Journal.sh"_s, own));
        QCOMPARE(shortcuts.names(), QStringList({ samples[0], samples[2] }));

        qputenv("HOME", root.path().toUtf8());
        qunsetenv("XDG_CONFIG_HOME");
        QVERIFY(shortcuts.run(u"일정 추가"_s, u"한글"_s)); // the user's own
        QVERIFY(readFile(root.filePath(u"Documents/Journal.md"_s)).endsWith("\n\n한글\n\n"));
    }
};

QTEST_GUILESS_MAIN(tst_UserShortcuts)
#include "tst_UserShortcuts.moc"
