// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DesktopEntries.h"

#include "files/Files.h"
#include "platform/freedesktop/ExecLine.h"
#include "platform/freedesktop/MimeApplications.h"
#include "platform/freedesktop/WindowNames.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_DesktopEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parses()
    {
        const QByteArray names = "[Desktop Entry]\nType=Application\nName=Editor\nName[ko]=편집기\n"
                                 "Name[pt_BR]=Editor de texto\nCategories=Utility;TextEditor;\n";
        const auto nameIn = [&names](const QString &locale) {
            return parseDesktopEntry(u"id"_s, names, locale)->name;
        };
        QCOMPARE(nameIn(u"pt_PT"_s), u"Editor"_s);
        QCOMPARE(nameIn(u"pt_BR"_s), u"Editor de texto"_s);
        QCOMPARE(nameIn(u"ko_KR.UTF-8"_s), u"편집기"_s);
        const auto parsed
            = [](const QByteArray &content) { return parseDesktopEntry(u"id"_s, content, u"C"_s); };
        const auto oddlySpaced
            = parsed("# x\n\n[Desktop Entry]\r\n Type = Application\r\nName=T\r\n"
                     "Categories=System;TerminalEmulator;\r\n");
        QVERIFY(oddlySpaced && oddlySpaced->name == u"T" && oddlySpaced->isTerminal);
        const auto twoGroups
            = parsed("[Desktop Entry]\nType=Application\nName=A\n"
                     "[Desktop Action New]\nName=B\nCategories=TerminalEmulator;\n");
        QVERIFY(twoGroups && twoGroups->name == u"A" && !twoGroups->isTerminal);
        QVERIFY(!parsed("[Desktop Entry]\nType=Link\nName=A\n"));
        QVERIFY(!parsed(QByteArray("\xff\x00=[[", 5)));
    }

    void find()
    {
        QTemporaryDir root;
        const QString own = root.filePath(u"own"_s);
        const QString system = root.filePath(u"system"_s);
        const QByteArray head = "[Desktop Entry]\nType=Application\n";
        QVERIFY(writeFile(own + u"/code.desktop"_s, head + "Name=Own Code\nStartupWMClass=Code\n"));
        QVERIFY(writeFile(system + u"/code.desktop"_s, head + "Name=System Code\n"));
        QVERIFY(writeFile(system + u"/org.xfce.mousepad.desktop"_s, head + "Name=Mousepad\n"));
        QVERIFY(writeFile(system + u"/kde/konsole.desktop"_s, head + "Name=Konsole\n"));
        QVERIFY(writeFile(system + u"/editor-settings.desktop"_s,
                          head + "Name=S\nExec=pad --preferences\n"));
        QVERIFY(writeFile(system + u"/org.test.editor.desktop"_s,
                          head + "Name=Pad\nExec=/usr/bin/pad %U\n"));
        QVERIFY(writeFile(system + u"/pad-opener.desktop"_s,
                          head + "Name=O\nExec=pad\nNoDisplay=true\n"));
        DesktopEntries entries({ own, system });
        const auto id = [&entries](const QStringList &names) {
            const auto entry = entries.find(names);
            return entry ? entry->id + u": "_s + entry->name : QString();
        };

        QCOMPARE(id({ u"org.xfce.mousepad"_s, u"Mousepad"_s }), u"org.xfce.mousepad: Mousepad"_s);
        QCOMPARE(id({ QString(), u"Code"_s }), u"code: Own Code"_s);
        QCOMPARE(id({ u"kde-konsole"_s }), u"kde-konsole: Konsole"_s);
        QCOMPARE(id({ u"Pad"_s, u"pad"_s }), u"org.test.editor: Pad"_s);
        QCOMPARE(id({ u"XTerm"_s, u"xterm"_s }), QString());
        const auto chosen = entries.read(system + u"/kde/konsole.desktop"_s);
        QVERIFY(chosen && chosen->id == u"kde-konsole");
        QVERIFY(!entries.read(root.filePath(u"none.desktop"_s)));
        const QString undescribed = u"org.example.Foot"_s; // on Wayland
        QVERIFY(applicationNamed({ undescribed, undescribed, u"Foot"_s }, entries).isTerminal);

        const auto named = [&entries](const QString &name) {
            const auto entry = entries.findNamed(name);
            return entry ? entry->file : QString();
        };
        QCOMPARE(named(u"own code"_s), own + u"/code.desktop"_s);
        QCOMPARE(named(u"mousepad"_s), system + u"/org.xfce.mousepad.desktop"_s);
        QCOMPARE(named(u"KDE-Konsole"_s), system + u"/kde/konsole.desktop"_s);
        QCOMPARE(named(u"Nobody"_s), QString());

        // An application that is installed later is found without a restart.
        QTest::qWait(20); // folder times have the file system's resolution
        QVERIFY(writeFile(own + u"/late.desktop"_s, head + "Name=Late\nStartupWMClass=XTerm\n"));
        QCOMPARE(id({ u"XTerm"_s }), u"late: Late"_s);
    }

    void associatedApplications()
    {
        const QByteArray own = "[Default Applications]\ntext/x=a.desktop;b.desktop;\ntext/plain=z\n"
                               "[Removed Associations]\ntext/x=d.desktop;\n"
                               "[Added Associations]\n text/x = c.desktop\r\n";
        const QByteArray system = "[Added Associations]\ntext/x=d.desktop;e.desktop\n"
                                  "[Default Applications]\ntext/x=f.desktop\n#text/x=g.desktop\n";
        const auto names = [](const QList<QByteArray> &lists, const QStringList &declaring) {
            return Tessel::associatedApplications(u"text/x"_s, lists, declaring).join(u' ');
        };
        QCOMPARE(names({ own, system }, { u"d"_s, u"h"_s }), u"a b f c e h"_s);
        QCOMPARE(names({ "", "[Default Applications]\ntext/*=a\ntext/xy=b" }, {}), QString());
        const QByteArray entry = "[Desktop Entry]\nMimeType=text/xy;text/x;\n[X]\nMimeType=a/b\n";
        QVERIFY(declaresMimeType(entry, "text/x"));
        QVERIFY(!declaresMimeType(entry, "text/") && !declaresMimeType(entry, "a/b"));
    }

    void commandLines()
    {
        const QStringList two { u"/a b"_s, u"/c"_s };
        const std::tuple<const char *, QStringList, QStringList> cases[] = {
            { "editor %f -x", two, { u"editor"_s, u"/a b"_s, u"-x"_s } },
            { "editor %f %U", {}, { u"editor"_s } },
            { "editor  %F", two, { u"editor"_s, u"/a b"_s, u"/c"_s } },
            { "web %u", { u"http://x/?a=%20&b"_s }, { u"web"_s, u"http://x/?a=%20&b"_s } },
            { "v --file=%f", { u"/a b"_s }, { u"v"_s, u"--file=/a b"_s } },
            { "cat", two, { u"cat"_s, u"/a b"_s, u"/c"_s } }, // without a field
            { "x %i %c %k %%",
              {},
              { u"x"_s, u"--icon"_s, u"pic"_s, u"My App"_s, u"/e.desktop"_s, u"%"_s } },
            { "x %d %m -%v", {}, { u"x"_s, u"-"_s } }, // deprecated
            { "\"/opt/my app/x\" \"a\\\\\"b\" \"\" \"%f\\\\$\"",
              {},
              { u"/opt/my app/x"_s, u"a\"b"_s, QString(), u"%f$"_s } },
            { "x \"a\\\\\\\\b\" c\\sd", {}, { u"x"_s, u"a\\b"_s, u"c"_s, u"d"_s } },
            { "x \"a", {}, {} },
        };
        for (const auto &[exec, targets, expected] : cases) {
            auto entry = parseDesktopEntry(
                u"e"_s,
                QByteArray("[Desktop Entry]\nType=Application\nName=My App\nIcon=pic\nExec=") + exec
                    + '\n',
                u"C"_s);
            QVERIFY(entry);
            entry->file = u"/e.desktop"_s;
            QCOMPARE(commandLine(*entry, targets), expected);
        }
    }
};

QTEST_GUILESS_MAIN(tst_DesktopEntries)
#include "tst_DesktopEntries.moc"
