// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "files/Files.h"
#include "platform/gnome/ExtensionFiles.h"
#include "platform/gnome/ExtensionSetup.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_GnomeExtension : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stateByTheShellsAnswer()
    {
        const auto known = [](double state) { return QVariantMap { { u"state"_s, state } }; };
        const struct
        {
            QVariantMap info;
            bool hasFiles;
            ExtensionState state;
        } rows[] = {
            { {}, false, ExtensionState::absent },
            { {}, true, ExtensionState::waiting },
            { known(1), true, ExtensionState::enabled },
            { known(2), true, ExtensionState::off },
            { known(3), true, ExtensionState::refused },
            { known(4), true, ExtensionState::refused },
            { known(6), true, ExtensionState::off },
            { { { u"state"_s, 6. }, { u"enabled"_s, true } }, true, ExtensionState::enabled },
        };
        for (const auto &[info, hasFiles, state] : rows)
            QCOMPARE(extensionState(info, hasFiles), state);
    }

    void copyForTheShell()
    {
        QTemporaryDir root;
        const QString shipped = root.filePath(u"shipped"_s);
        QVERIFY(writeFile(shipped + u"/43/service.js"_s, QByteArray("old")));
        QVERIFY(writeFile(shipped + u"/45/service.js"_s, QByteArray("new")));
        const QString copy = root.filePath(u"extensions/ours"_s);
        const ExtensionFiles files(shipped, copy);
        const auto installedFor = [&](const QString &version) {
            return files.install(version) ? readFile(copy + u"/service.js"_s) : QByteArray("none");
        };
        QCOMPARE(installedFor(u"42.5"_s), QByteArray("none"));
        QCOMPARE(installedFor(u"44.9"_s), QByteArray("old"));
        QVERIFY(writeFile(copy + u"/left-over.js"_s, QByteArray("x")));
        QVERIFY(!files.isCopyOld(u"43.1"_s) && files.isCopyOld(u"45.beta"_s));
        QCOMPARE(installedFor(u"50.1"_s), QByteArray("new"));
        QCOMPARE(QDir(copy).entryList(QDir::Files), QStringList(u"service.js"_s));
        QCOMPARE(QDir(root.filePath(u"extensions"_s))
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                     .size(),
                 1);

        const QString linked = root.filePath(u"linked"_s);
        QVERIFY(QFile::link(copy, linked));
        const ExtensionFiles developers(shipped, linked);
        QVERIFY(!developers.isCopyOld(u"43.1"_s) && !developers.install(u"43.1"_s));
        QCOMPARE(readFile(copy + u"/service.js"_s), QByteArray("new"));
    }
};

QTEST_GUILESS_MAIN(tst_GnomeExtension)
#include "tst_GnomeExtension.moc"
