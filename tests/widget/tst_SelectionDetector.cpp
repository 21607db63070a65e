// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/KeyCodes.h"
#include "base/LocalizationManager.h"
#include "capture/AccessibilityManager.h"
#include "capture/ActionBar.h"
#include "capture/SelectionDetector.h"
#include "config/ConfigManager.h"
#include "config/NotificationCenter.h"
#include "platform/fake/FakePlatform.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using Kind = InputEvent::Kind;

namespace {

class RecordingBar final : public ActionBar
{
public:
    void show(const PopupLocation &, const QString &newText, bool) override { text = newText; }
    void hide() override { text.clear(); }

    [[nodiscard]] bool isShown() const { return !text.isEmpty(); }

    QString text;
};

/// From a key press to the bar, on a clock that the test moves.
struct Fixture
{
    QTemporaryDir folder;
    FakePlatform platform;
    NotificationCenter notifications;
    LocalizationManager localization;
    ConfigManager config { { folder.path(), notifications, localization } };
    RecordingBar bar;
    qint64 offset = 0;
    QElapsedTimer timer;
    AccessibilityManager accessibility { { platform.workspace(), platform.copyRequest(),
                                           platform.pasteboard(),
                                           [this] { return timer.elapsed() + offset; } } };
    std::unique_ptr<SelectionDetector> detector
        = std::make_unique<SelectionDetector>(SelectionDetector::Dependencies {
            config, notifications, accessibility, bar, platform.eventMonitor(),
            platform.popupHost(), platform.workspace() });

    Fixture()
    {
        timer.start();
        platform.copyRequest().onCopy = [this] { platform.pasteboard().put(u"selected"_s); };
        detector->startMonitoring();
    }

    void send(Kind kind, qint64 keyCode = -1, qint64 modifiers = 0)
    {
        platform.eventMonitor().send({ kind, keyCode, modifiers });
    }
    void trigger() { send(Kind::keyDown, KeyCodes::keyF2); }

    [[nodiscard]] qsizetype captures() { return platform.copyRequest().requests.size(); }

    /// How often the application in front got the trigger after all.
    [[nodiscard]] int passedOn() { return platform.eventMonitor().passedOn; }

    void skipSuppression() { offset += 1000; }
};

}

class tst_SelectionDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trigger()
    {
        using namespace KeyCodes;
        struct Chord
        {
            qint64 key;
            qint64 modifiers;
        };
        const auto fires = [](Chord configured, Chord pressed) {
            Fixture fixture;
            fixture.config.triggerKeyCode = configured.key;
            fixture.config.triggerModifiers = configured.modifiers;
            fixture.send(Kind::keyDown, pressed.key, pressed.modifiers);
            return fixture.captures() == 1
                && QTest::qWaitFor([&fixture] { return fixture.bar.isShown(); });
        };
        QVERIFY(fires({ keyF2, 0 }, { keyF2, 0x10000 })); // Caps Lock
        QVERIFY(!fires({ keyF2, 0 }, { keyC, 0 }));
        QVERIFY(fires({ keyC, control | option }, { keyC, control | option }));
        QVERIFY(!fires({ keyC, control | option }, { keyC, control }));
        QVERIFY(!fires({ keyC, command }, { keyC, command | shift }));
    }

    void hiding()
    {
        for (const InputEvent &event :
             { InputEvent { Kind::keyDown, KeyCodes::keyEscape, 0 },
               InputEvent { Kind::keyDown, KeyCodes::keyC, 0 },
               InputEvent { Kind::scrollWheel, -1, 0 }, InputEvent { Kind::leftMouseUp, -1, 0 } }) {
            Fixture fixture;
            fixture.trigger();
            QTRY_COMPARE(fixture.bar.text, u"selected"_s);
            fixture.platform.eventMonitor().send(event);
            QCOMPARE(fixture.bar.isShown(), event.kind != Kind::leftMouseUp);
            fixture.skipSuppression();
            fixture.platform.eventMonitor().send(event);
            QVERIFY(!fixture.bar.isShown());
        }
    }

    void secondPressWithinASecondIsIgnored()
    {
        Fixture fixture;
        fixture.trigger();
        fixture.trigger();
        QCOMPARE(fixture.captures(), 1);
        fixture.skipSuppression();
        fixture.trigger();
        QCOMPARE(fixture.captures(), 2);
        QTRY_VERIFY(fixture.bar.isShown());

        QCOMPARE(fixture.passedOn(), 0);

        fixture.platform.copyRequest().onCopy = {}; // a capture that fails hides the bar
        fixture.skipSuppression();
        fixture.trigger();
        QTRY_VERIFY(!fixture.bar.isShown());
        QCOMPARE(fixture.passedOn(), 1);
        fixture.trigger(); // ignored again, but not by the application
        QCOMPARE(fixture.passedOn(), 2);
    }

    void keyOfTheDesktop()
    {
        Fixture fixture;
        fixture.platform.copyRequest().onCopy = {};
        fixture.detector->trigger();
        // It is not pressed for the application; a trigger that follows is.
        QVERIFY(QTest::qWaitFor([&fixture] {
            fixture.trigger();
            return fixture.passedOn() > 0;
        }));
        QCOMPARE(fixture.passedOn(), 1);

        Fixture held;
        held.detector->trigger();
        held.skipSuppression();
        held.detector->trigger();
        QCOMPARE(held.captures(), 1);
        QTRY_VERIFY(held.bar.isShown());
    }

    void excludedApplicationIsCopiedFromButGetsNoBar()
    {
        Fixture fixture;
        fixture.config.excludedBundleIds = { u"org.test.Editor"_s };
        fixture.trigger();
        QCOMPARE(fixture.captures(), 1);
        QTRY_COMPARE(fixture.passedOn(), 1);
        QVERIFY(!fixture.bar.isShown());

        for (const auto &identifier : // exclusion is exact, and needs an identifier
             { std::optional(u"org.test.editor"_s), std::optional<QString>() }) {
            fixture.skipSuppression();
            fixture.platform.workspace().front->bundleIdentifier = identifier;
            fixture.trigger();
            QTRY_VERIFY(fixture.bar.isShown());
            fixture.bar.hide();
        }

        fixture.skipSuppression();
        fixture.platform.workspace().missing = { u"XTEST"_s };
        fixture.trigger();
        QCOMPARE(fixture.captures(), 3); // without access nothing is sent
    }

    void destructionEndsTheMonitoring()
    {
        Fixture fixture;
        fixture.trigger();
        fixture.detector.reset(); // with a capture under way
        QTest::qWait(250); // twice the time that the bar would need
        QVERIFY(!fixture.bar.isShown());
        fixture.skipSuppression();
        fixture.trigger();
        QCOMPARE(fixture.captures(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_SelectionDetector)
#include "tst_SelectionDetector.moc"
