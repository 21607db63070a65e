// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/KeyCodes.h"
#include "capture/AccessibilityManager.h"
#include "capture/SelectionDetector.h"
#include "widget/PanelFixture.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using Kind = InputEvent::Kind;

namespace {

/// The whole path from a key press to the bar, on a clock that the test moves.
struct DetectorFixture : PanelFixture
{
    qint64 offset = 0;
    QElapsedTimer timer;
    AccessibilityManager accessibility { { platform.workspace(), platform.copyRequest(),
                                           platform.pasteboard(), platform.popupHost(),
                                           [this] { return timer.elapsed() + offset; } } };
    std::unique_ptr<SelectionDetector> detector = std::make_unique<SelectionDetector>(
        SelectionDetector::Dependencies { config, accessibility, panel, platform.eventMonitor(),
                                          platform.popupHost(), platform.workspace() });

    DetectorFixture()
    {
        timer.start();
        platform.copyRequest().onCopy = [this] { platform.pasteboard().put(u"selected"_s); };
        detector->startMonitoring();
    }

    void send(Kind kind, qint64 keyCode = -1, qint64 modifiers = 0)
    {
        platform.eventMonitor().send({ kind, keyCode, modifiers });
    }

    [[nodiscard]] qsizetype captures() { return platform.copyRequest().requests.size(); }

    void skipSuppression() { offset += 1000; }
};

}

class tst_SelectionDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trigger_data()
    {
        QTest::addColumn<qint64>("configuredKey");
        QTest::addColumn<qint64>("configuredModifiers");
        QTest::addColumn<qint64>("key");
        QTest::addColumn<qint64>("modifiers");
        QTest::addColumn<bool>("fires");
        const auto row = [](const char *name, qint64 wantedKey, qint64 wantedModifiers, qint64 key,
                            qint64 modifiers, bool fires) {
            QTest::newRow(name) << wantedKey << wantedModifiers << key << modifiers << fires;
        };
        using namespace KeyCodes;
        row("F2", keyF2, 0, keyF2, 0, true);
        row("F2 with Shift", keyF2, 0, keyF2, shift, false);
        row("F2 with Caps Lock", keyF2, 0, keyF2, 0x10000, true);
        row("other key", keyF2, 0, keyC, 0, false);
        row("chord", keyC, control | option, keyC, control | option, true);
        row("half of the chord", keyC, control | option, keyC, control, false);
        row("more than the chord", keyC, command, keyC, command | shift, false);
        row("key without code", keyF2, 0, -1, 0, false);
    }

    void trigger()
    {
        QFETCH(qint64, configuredKey);
        QFETCH(qint64, configuredModifiers);
        QFETCH(qint64, key);
        QFETCH(qint64, modifiers);
        QFETCH(bool, fires);
        DetectorFixture fixture;
        fixture.config.triggerKeyCode = configuredKey;
        fixture.config.triggerModifiers = configuredModifiers;
        fixture.send(Kind::keyDown, key, modifiers);
        QCOMPARE(fixture.captures(), fires ? 1 : 0);
        if (fires) {
            QTRY_VERIFY(fixture.panel.isVisible());
            QCOMPARE(fixture.panel.currentText(), u"selected"_s);
        }
    }

    void hiding_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<qint64>("key");
        QTest::addColumn<bool>("isSuppressed");
        QTest::newRow("Escape") << int(Kind::keyDown) << KeyCodes::keyEscape << true;
        QTest::newRow("another key") << int(Kind::keyDown) << KeyCodes::keyC << true;
        QTest::newRow("scroll") << int(Kind::scrollWheel) << qint64(-1) << true;
        QTest::newRow("click") << int(Kind::leftMouseUp) << qint64(-1) << false;
    }

    void hiding()
    {
        QFETCH(int, kind);
        QFETCH(qint64, key);
        QFETCH(bool, isSuppressed);
        DetectorFixture fixture;
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QTRY_VERIFY(fixture.panel.isVisible());
        fixture.send(Kind(kind), key);
        QCOMPARE(fixture.panel.isVisible(), isSuppressed);
        fixture.skipSuppression();
        fixture.send(Kind(kind), key);
        QVERIFY(!fixture.panel.isVisible());
    }

    void secondPressWithinASecondIsIgnored()
    {
        DetectorFixture fixture;
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QCOMPARE(fixture.captures(), 1);
        fixture.skipSuppression();
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QCOMPARE(fixture.captures(), 2);
        QTRY_VERIFY(fixture.panel.isVisible());
    }

    void excludedApplicationIsCopiedFromButGetsNoBar()
    {
        DetectorFixture fixture;
        fixture.config.excludedBundleIds = { u"org.test.Editor"_s };
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QCOMPARE(fixture.captures(), 1);
        QTest::qWait(250); // twice the time that the bar would need
        QVERIFY(!fixture.panel.isVisible());

        fixture.skipSuppression(); // exclusion is exact, and needs an identifier
        for (const auto &identifier :
             { std::optional(u"org.test.editor"_s), std::optional<QString>() }) {
            fixture.platform.workspace().front->bundleIdentifier = identifier;
            fixture.send(Kind::keyDown, KeyCodes::keyF2);
            QTRY_VERIFY(fixture.panel.isVisible());
            fixture.panel.hide();
            fixture.skipSuppression();
        }
    }

    void failedCaptureHidesTheBar()
    {
        DetectorFixture fixture;
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QTRY_VERIFY(fixture.panel.isVisible());
        fixture.platform.copyRequest().onCopy = {};
        fixture.skipSuppression();
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QVERIFY(fixture.panel.isVisible());
        QTRY_VERIFY(!fixture.panel.isVisible());
    }

    void withoutAccessNothingIsSent()
    {
        DetectorFixture fixture;
        fixture.platform.workspace().missing = { u"XTEST"_s };
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QCOMPARE(fixture.captures(), 0);
    }

    void destructionEndsTheMonitoring()
    {
        DetectorFixture fixture;
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        fixture.detector.reset(); // with a capture under way
        QTest::qWait(250); // twice the time that the bar would need
        QVERIFY(!fixture.panel.isVisible());
        fixture.skipSuppression();
        fixture.send(Kind::keyDown, KeyCodes::keyF2);
        QCOMPARE(fixture.captures(), 1);
    }
};

QTEST_MAIN(tst_SelectionDetector)
#include "tst_SelectionDetector.moc"
