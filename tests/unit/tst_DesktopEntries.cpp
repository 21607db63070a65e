// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DesktopEntries.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_DesktopEntries : public QObject
{
    Q_OBJECT

    static void write(const QString &path, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

private Q_SLOTS:
    void parse_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("name"); // null: not an application
        QTest::addColumn<bool>("isTerminal");

        const QByteArray names = "[Desktop Entry]\nType=Application\nName=Editor\nName[ko]=편집기\n"
                                 "Name[pt_BR]=Editor de texto\nCategories=Utility;TextEditor;\n";
        QTest::newRow("other country") << names << u"pt_PT"_s << u"Editor"_s << false;
        QTest::newRow("language") << names << u"ko_KR.UTF-8"_s << u"편집기"_s << false;
        QTest::newRow("country") << names << u"pt_BR"_s << u"Editor de texto"_s << false;
        QTest::newRow("terminal, odd spacing")
            << QByteArray("# x\n\n[Desktop Entry]\r\n Type = Application\r\nName=T\r\n"
                          "Categories=System;TerminalEmulator;\r\n")
            << u"C"_s << u"T"_s << true;
        QTest::newRow("keys of another group do not count")
            << QByteArray("[Desktop Entry]\nType=Application\nName=A\n[Desktop Action New]\n"
                          "Name=B\nCategories=TerminalEmulator;\n")
            << u"C"_s << u"A"_s << false;
        QTest::newRow("link") << QByteArray("[Desktop Entry]\nType=Link\nName=A\n") << u"C"_s
                              << QString() << false;
        QTest::newRow("rubbish") << QByteArray("\xff\x00=[[", 5) << u"C"_s << QString() << false;
    }

    void parse()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, locale);
        QFETCH(QString, name);
        QFETCH(bool, isTerminal);
        const auto entry = parseDesktopEntry(u"id"_s, content, locale);
        QCOMPARE(entry.has_value(), !name.isNull());
        if (entry) {
            QCOMPARE(entry->name, name);
            QCOMPARE(entry->isTerminal, isTerminal);
        }
    }

    void find()
    {
        QTemporaryDir root;
        const QString own = root.filePath(u"own"_s);
        const QString system = root.filePath(u"system"_s);
        const QByteArray head = "[Desktop Entry]\nType=Application\n";
        write(own + u"/code.desktop"_s, head + "Name=Own Code\nStartupWMClass=Code\n");
        write(system + u"/code.desktop"_s, head + "Name=System Code\n");
        write(system + u"/org.xfce.mousepad.desktop"_s, head + "Name=Mousepad\n");
        write(system + u"/kde/konsole.desktop"_s, head + "Name=Konsole\n");
        write(system + u"/editor-settings.desktop"_s, head + "Name=S\nExec=pad --preferences\n");
        write(system + u"/org.test.editor.desktop"_s, head + "Name=Pad\nExec=/usr/bin/pad %U\n");
        write(system + u"/pad-opener.desktop"_s, head + "Name=O\nExec=pad\nNoDisplay=true\n");
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
        write(own + u"/late.desktop"_s, head + "Name=Late\nStartupWMClass=XTerm\n");
        QCOMPARE(id({ u"XTerm"_s }), u"late: Late"_s);
    }
};

QTEST_GUILESS_MAIN(tst_DesktopEntries)
#include "tst_DesktopEntries.moc"
