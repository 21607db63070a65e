// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/WaylandTessel.h"

#include <QTest>

#include <linux/input-event-codes.h>

/// A test of what the actions do that everybody has at first, for Wayland desktops.
namespace Tessel::DefaultActionCases {

inline void addRows()
{
    using namespace Qt::StringLiterals;
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("folder"); // with a file that contains the text
    const auto row
        = [](const char *title, const QString &url, const QString &clipboard = {},
             const QString &folder = {}) { QTest::newRow(title) << url << clipboard << folder; };
    const QString encoded = u"dentist%202031-05-06%2015:30"_s;
    row("Search", u"https://www.google.com/search?q="_s + encoded);
    row("Translate",
        u"https://translate.google.com/?sl=auto&tl=ko&text=%1&op=translate"_s.arg(encoded));
    row("ChatGPT", u"https://chatgpt.com/?q="_s + encoded);
    row("Copy", {}, u"dentist 2031-05-06 15:30"_s);
    row("Count", {}, u"24"_s);
    row("Uppercase", {}, u"DENTIST 2031-05-06 15:30"_s);
    row("Add to Notes", {}, {}, u"Documents/Notes"_s);
    row("Add to Calendar", {}, {}, u"got"_s);
    row("Large Type", {});
}

/// The action of the current row, on a desktop that is up.
template <typename Stage> void run(Stage &stage)
{
    using namespace Qt::StringLiterals;
    QFETCH(QString, url);
    QFETCH(QString, clipboard);
    QFETCH(QString, folder);
    const QString title = QString::fromLatin1(QTest::currentDataTag());
    stage.tessel.actions = { TesselProcess::defaultAction(title) };
    QVERIFY(folder != u"got" || stage.installCalendar());
    QVERIFY(stage.tessel.start() && stage.open(u"dentist 2031-05-06 15:30"_s));
    QVERIFY(stage.tessel.summon());
    stage.user().tap(KEY_1);
    if (!url.isEmpty()) {
        QCOMPARE(stage.openedUrl(), QStringList { url });
    } else if (!clipboard.isEmpty()) {
        QTRY_COMPARE_WITH_TIMEOUT(stage.session.clipboard(), clipboard, 15000);
        QVERIFY(title != u"Uppercase" || stage.editor->holds(clipboard));
    } else if (!folder.isEmpty()) {
        const QString part = folder == u"got" ? u"DTSTART:20310506T153000"_s : u"dentist"_s;
        QTRY_VERIFY_WITH_TIMEOUT(stage.onlyFile(folder).value_or(QString()).contains(part), 15000);
    } else {
        const auto isVeiled = [&] { return qGray(stage.session.screenshot().pixel(5, 200)) < 100; };
        QTRY_VERIFY(isVeiled());
        stage.user().tap(KEY_ESC);
        QTRY_VERIFY(!isVeiled());
    }
}

}
