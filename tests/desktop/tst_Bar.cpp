// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Selection = XClipboard::Selection;

/// How the bar behaves on the screen, among other windows.
class tst_Bar : public QObject
{
    Q_OBJECT

    static bool prepare(Stage &stage, const DesktopOptions &options = {})
    {
        return stage.start(options) && stage.open();
    }

    /// Middle of the editor's text, away from its edges.
    static QPoint middle(const Stage &stage) { return stage.editor->window().geometry.center(); }

private Q_SLOTS:
    void leavesNoTraceAroundIt()
    {
        for (const bool compositor : { true, false }) {
            Stage stage;
            QVERIFY(prepare(stage));
            QVERIFY(!compositor || stage.session.startCompositor()); // after the program
            stage.user().movePointer(middle(stage));
            const QImage before = stage.user().screenshot();
            const auto bar = stage.tessel.summon();
            QVERIFY(bar);
            const QPoint center = bar->geometry.center();
            QTRY_VERIFY(stage.user().screenshot().pixel(center) != before.pixel(center));

            // In the corners of the window, where only the end of the shadow is, all is as before.
            const auto corners = [&](const QImage &image) {
                const QRect window = bar->geometry;
                QList<QRgb> pixels;
                for (const QPoint &corner :
                     { window.topLeft() + QPoint(1, 1), window.topRight() + QPoint(-1, 1),
                       window.bottomLeft() + QPoint(1, -1), window.bottomRight() + QPoint(-1, -1) })
                    pixels += image.pixel(corner);
                return pixels;
            };
            QTRY_COMPARE(corners(stage.user().screenshot()), corners(before));
            // Beside the bar there is a shadow where it can be blended, nothing where it cannot.
            const QPoint below(center.x(), bar->geometry.y() + bar->geometry.height() - 17);
            QCOMPARE(stage.user().screenshot().pixel(below) != before.pixel(below), compositor);

            stage.user().tap(XKB_KEY_Escape);
            QVERIFY(stage.tessel.waitUntilBarGone());
            QTRY_COMPARE(stage.user().screenshot(bar->geometry), before.copy(bar->geometry));
            QVERIFY(stage.session.urlRecorder().urls().isEmpty());
        }
    }

    void inputElsewhereGoesThroughAndHides_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("click beside the bar") << u"beside"_s;
        QTest::newRow("click in the window's margin") << u"margin"_s;
        QTest::newRow("drag onto the bar") << u"drag"_s;
        QTest::newRow("scroll") << u"scroll"_s;
    }

    void inputElsewhereGoesThroughAndHides()
    {
        QFETCH(QString, what);
        Stage stage;
        QVERIFY(prepare(stage));
        stage.user().movePointer(middle(stage));
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        const QPoint place = what == u"margin" ? bar->geometry.topLeft() + QPoint(10, 10)
                                               : middle(stage) + QPoint(120, 60);
        if (what == u"scroll") {
            stage.user().movePointer(place);
            stage.tessel.awaitTrigger(); // scrolling is not heeded before
            stage.user().scroll(1);
        } else {
            stage.user().movePointer(place);
            stage.user().pressButton();
            QTest::qWait(50); // a hand is not faster
            if (what == u"drag")
                stage.user().movePointer(bar->geometry.center());
            stage.user().releaseButton();
            // The editor got the click: its selection is gone.
            QTRY_VERIFY(stage.session.clipboard().owner(Selection::Primary) == 0
                        || stage.session.clipboard().text(Selection::Primary) != u"tesserae"_s);
        }
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.session.urlRecorder().urls().isEmpty());
    }

    void clickOrScrollOnTheBarDoesNotHideIt()
    {
        Stage stage;
        QVERIFY(prepare(stage));
        stage.user().movePointer(middle(stage));
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        stage.tessel.awaitTrigger();
        const QRect visible = bar->geometry.adjusted(22, 20, -22, -20);
        stage.user().movePointer(visible.topLeft() + QPoint(4, 20)); // the padding
        stage.user().scroll(1);
        stage.user().click(visible.topLeft() + QPoint(4, 20));
        stage.user().pressButton();
        QTest::qWait(50); // a hand is not faster
        stage.user().movePointer(middle(stage) + QPoint(120, 60));
        stage.user().releaseButton(); // of a press on the bar
        QTest::qWait(300); // longer than the bar would need to go
        stage.user().click(TesselProgram::button(*bar, 0)); // works as ever
        QCOMPARE(stage.openedUrl().size(), 1);
    }

    void standsAboveAFullScreenWindow()
    {
        Stage stage;
        QVERIFY(prepare(stage));
        stage.user().tap(XKB_KEY_F11);
        const quint32 editor = stage.editor->window().id;
        const QSize screen = stage.user().screenshot().size();
        QTRY_COMPARE(stage.user().window(editor)->geometry.size(), screen);
        QVERIFY(stage.editor->selectAll());
        stage.user().movePointer(QPoint(640, 400));
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        QCOMPARE(stage.user().windows().last().id, bar->id);
        stage.user().click(TesselProgram::button(*bar, 0));
        QCOMPARE(stage.openedUrl().size(), 1);
    }

    void staysOnTheScreenOfTheActiveWindow()
    {
        Stage stage;
        DesktopOptions options;
        options.monitors = { QRect(0, 0, 1000, 700), QRect(1000, 0, 800, 600) };
        QVERIFY(prepare(stage, options));
        const bool isOnFirst = middle(stage).x() < 1000;
        const QRect active = options.monitors.at(isOnFirst ? 0 : 1);

        // Near a corner of the active screen, and on the other screen.
        const QPoint otherScreen = options.monitors.at(isOnFirst ? 1 : 0).center();
        for (const QPoint &pointer : { active.topLeft() + QPoint(2, 3), otherScreen }) {
            stage.user().movePointer(pointer);
            QVERIFY(stage.editor->selectAll());
            const auto bar = stage.tessel.summon();
            QVERIFY(bar);
            QVERIFY(active.adjusted(-20, -20, 20, 20).contains(bar->geometry));
            QCOMPARE(bar->geometry.y() > pointer.y(), pointer.y() < 100);
            stage.user().tap(XKB_KEY_Escape);
            QVERIFY(stage.tessel.waitUntilBarGone());
        }
    }

    void isSharpAndWorksAtAScale()
    {
        constexpr double scale = 1.5;
        Stage stage;
        DesktopOptions options;
        options.monitors = { QRect(0, 0, 1600, 1000) };
        options.dpi = int(96 * scale);
        QVERIFY(prepare(stage, options));
        const QPoint pointer(800, 700);
        stage.user().movePointer(pointer);
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        QCOMPARE(bar->geometry.size(), QSize(int(102 * scale), int(94 * scale)));
        QVERIFY(qAbs(bar->geometry.center().x() - pointer.x()) <= 2);
        const QPoint button
            = bar->geometry.topLeft() + QPoint(int((34 + 19) * scale), int((28 + 19) * scale));
        // The star is drawn with the pixels that the scale gives, not blown up: pairs of equal
        // rows are rare in it.
        const int extent = int(18 * scale);
        const QRect star(button - QPoint(extent / 2, extent / 2), QSize(extent, extent));
        const auto equalRows = [&] {
            const QImage image = stage.user().screenshot(star);
            int equal = 0;
            for (int y = 1; y < image.height(); ++y)
                equal += image.copy(0, y, extent, 1) == image.copy(0, y - 1, extent, 1);
            return equal;
        };
        QTRY_VERIFY(equalRows() < extent / 4);
        stage.user().click(button);
        QCOMPARE(stage.openedUrl().size(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_Bar)
#include "tst_Bar.moc"
