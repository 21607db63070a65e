// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/WaylandTessel.h"

#include <QTest>

#include <linux/input-event-codes.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Kind = WaylandEditorKind;

namespace {

const QPoint place(1180, 760); // beside every window
const QStringList opened { u"tessel-test://open?tesserae"_s };

/// The desktop entry by which KWin knows the program comes before KWin.
bool start(WaylandStage &stage)
{
    QString entry = QString::fromUtf8(readFile(QStringLiteral(TESSEL_KWIN_ENTRY)));
    entry.replace(u"@program@"_s, TesselProcess::path());
    entry.replace(u"@interfaces@"_s, u"org_kde_kwin_fake_input,org_kde_kwin_keystate"_s);
    return writeFile(stage.session.dataPath() + u"/applications/com.tessel.app.kwin.desktop"_s,
                     entry)
        && stage.start(WaylandOptions { .kwin = true });
}

}

/// What KWin does differently: the trigger, the keys pressed, and how windows are known.
class tst_KWinMainJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensTheSelection_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<bool>("byMouse");
        QTest::newRow("mousepad, key") << Kind::Mousepad << false;
        QTest::newRow("featherpad, click") << Kind::FeatherPad << true;
    }

    void opensTheSelection()
    {
        QFETCH(Kind, kind);
        QFETCH(bool, byMouse);
        WaylandStage stage;
        QVERIFY(start(stage));
        QVERIFY(stage.open(u"tesserae"_s, kind));
        QVERIFY(stage.tessel.summon(place));
        if (byMouse)
            stage.user().click(WaylandTessel::place(place, 1).center());
        else
            stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
        stage.user().movePointer(place);
        QVERIFY(stage.tessel.waitUntilBarGone());
        stage.user().tap(KEY_1);
        QVERIFY(stage.editor->holds(u"1"_s));
    }

    void isDismissedAndComesBack()
    {
        WaylandStage stage;
        QVERIFY(start(stage) && stage.open());
        QVERIFY(stage.tessel.summon(place));
        stage.user().tap(KEY_ESC);
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.tessel.summon(place));
        stage.user().click({ 600, 500 }); // does not unmark the text
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.tessel.summon(place));
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
    }

    void excludedApplication()
    {
        WaylandStage stage;
        stage.tessel.settings
            = { { u"excludedBundleIds"_s, QJsonArray { u"org.xfce.mousepad"_s } } };
        QVERIFY(start(stage) && stage.open());
        stage.user().tap(KEY_F2);
        QVERIFY(stage.logs(u"App excluded: org\\.xfce\\.mousepad"_s));
    }

    /// There is one keyboard state for all: the copy waits for them.
    void heldModifiersNeitherJoinNorStick()
    {
        WaylandStage stage;
        stage.tessel.settings = { { u"triggerKeyCode"_s, 49 }, { u"triggerModifiers"_s, 0x60000 } };
        QVERIFY(start(stage) && stage.open(u"tesserae"_s, Kind::FeatherPad));
        stage.user().movePointer(place);
        stage.user().tap(KEY_SPACE, { KEY_LEFTCTRL, KEY_LEFTSHIFT });
        QVERIFY(stage.tessel.waitForBar(place));
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
    }
};

QTEST_GUILESS_MAIN(tst_KWinMainJob)
#include "tst_KWinMainJob.moc"
