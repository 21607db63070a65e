// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/ExecLine.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_ExecLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void command_data()
    {
        QTest::addColumn<QByteArray>("exec"); // as in the file
        QTest::addColumn<QStringList>("targets");
        QTest::addColumn<QStringList>("expected");
        const QStringList two { u"/a b"_s, u"/c"_s };
        const auto row = [](const char *name, const char *exec, const QStringList &targets,
                            const QStringList &expected) {
            QTest::newRow(name) << QByteArray(exec) << targets << expected;
        };
        row("one file", "editor %f -x", two, { u"editor"_s, u"/a b"_s, u"-x"_s });
        row("no file", "editor %f %U", {}, { u"editor"_s });
        row("files", "editor  %F", two, { u"editor"_s, u"/a b"_s, u"/c"_s });
        row("address", "web %u", { u"http://x/?a=%20&b"_s }, { u"web"_s, u"http://x/?a=%20&b"_s });
        row("inside a word", "v --file=%f", { u"/a b"_s }, { u"v"_s, u"--file=/a b"_s });
        row("without a field", "cat", two, { u"cat"_s, u"/a b"_s, u"/c"_s });
        row("icon, name, entry", "x %i %c %k %%", {},
            { u"x"_s, u"--icon"_s, u"pic"_s, u"My App"_s, u"/e.desktop"_s, u"%"_s });
        row("deprecated", "x %d %m -%v", {}, { u"x"_s, u"-"_s });
        row("quotes", "\"/opt/my app/x\" \"a\\\\\"b\" \"\" \"%f\\\\$\"", {},
            { u"/opt/my app/x"_s, u"a\"b"_s, QString(), u"%f$"_s });
        row("backslash", "x \"a\\\\\\\\b\" c\\sd", {}, { u"x"_s, u"a\\b"_s, u"c"_s, u"d"_s });
        row("open quotation", "x \"a", {}, {});
    }

    void command()
    {
        QFETCH(QByteArray, exec);
        QFETCH(QStringList, targets);
        QFETCH(QStringList, expected);
        const auto entry = parseDesktopEntry(
            u"e"_s, "[Desktop Entry]\nType=Application\nName=My App\nIcon=pic\nExec=" + exec + '\n',
            u"C"_s);
        QVERIFY(entry);
        DesktopEntry complete = *entry;
        complete.file = u"/e.desktop"_s;
        QCOMPARE(commandLine(complete, targets), expected);
    }
};

QTEST_APPLESS_MAIN(tst_ExecLine)
#include "tst_ExecLine.moc"
