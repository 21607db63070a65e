// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/DefaultActionCases.h"
#include "desktop/SelectionLoop.h"

#include <QTest>

#include <linux/input-event-codes.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Kind = WaylandEditorKind;

namespace {

const QString noText = u"simulation failed or no text selected"_s;

/// How many descriptors, threads and children a process has.
QList<qsizetype> countsOf(qint64 process)
{
    const QString folder = u"/proc/%1/"_s.arg(process);
    const auto entries = [&folder](const QString &name) {
        return QDir(folder + name).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
    };
    const QByteArray children = readFile(folder + u"task/%1/children"_s.arg(process));
    return { entries(u"fd"_s), entries(u"task"_s), children.count(' ') };
}

}

/// The program on a wlroots compositor: select text, press the trigger, see the bar, pick its
/// action.
class tst_WaylandMainJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensTheSelection_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("layout");
        QTest::addColumn<QList<double>>("scales");
        QTest::addColumn<QPoint>("pointer"); // on the last output
        QTest::addColumn<bool>("byMouse");
        const auto row = [](const char *name, Kind kind, const char *layout,
                            const QList<double> &scales, QPoint pointer, bool byMouse) {
            QTest::newRow(name) << kind << QString::fromLatin1(layout) << scales << pointer
                                << byMouse;
        };
        const QPoint usual(1000, 600);
        row("mousepad", Kind::Mousepad, "us", { 1 }, usual, false);
        row("mousepad, click", Kind::Mousepad, "us", { 1 }, usual, true);
        row("featherpad, ru", Kind::FeatherPad, "ru", { 1 }, usual, false);
        row("featherpad on X, de", Kind::FeatherPadOnX, "de", { 1 }, usual, true);
        row("mousepad, kr", Kind::Mousepad, "kr", { 1 }, usual, false);
        row("foot", Kind::Foot, "us", { 1 }, usual, false);
        row("scale 1.25", Kind::FeatherPad, "us", { 1.25 }, usual, false);
        row("scale 1.5", Kind::Mousepad, "us", { 1.5 }, usual, true);
        row("scale 2", Kind::FeatherPad, "us", { 2 }, { 640, 780 }, true);
        row("two outputs", Kind::Mousepad, "us", { 1, 1.5 }, { 2280, 600 }, true);
    }

    void opensTheSelection()
    {
        QFETCH(Kind, kind);
        QFETCH(QString, layout);
        QFETCH(QList<double>, scales);
        QFETCH(QPoint, pointer);
        QFETCH(bool, byMouse);
        WaylandStage stage;
        QVERIFY(stage.start(WaylandOptions {
            .scales = scales, .keyboardLayout = layout, .x11 = kind == Kind::FeatherPadOnX }));
        SelectionLoop::run(stage, kind, { pointer, scales.last(), byMouse });
    }

    void isDismissed()
    {
        WaylandStage stage;
        QVERIFY(stage.start() && stage.open());
        const std::function<void()> ways[] = {
            [&] { stage.user().tap(KEY_ESC); },
            [&] {
                stage.user().click({ 300, 200 });
            }, // which would unmark the text
            [&] {
                stage.tessel.awaitTrigger(); // scrolling is not heeded before
                stage.user().scroll(1);
            },
        };
        for (const auto &dismiss : ways) {
            QVERIFY(stage.tessel.summon());
            dismiss();
            QVERIFY(stage.tessel.waitUntilBarGone());
        }
        stage.user().tap(KEY_1);
        QVERIFY(stage.editor->holds(u"1"_s));
        QVERIFY(stage.session.urlRecorder().urls().isEmpty());
    }

    void excludedApplication()
    {
        WaylandStage stage;
        stage.tessel.settings
            = { { u"excludedBundleIds"_s, QJsonArray { u"org.xfce.mousepad"_s } } };
        QVERIFY(stage.start() && stage.open());
        stage.user().tap(KEY_F2);
        QVERIFY(stage.logs(u"App excluded: org\\.xfce\\.mousepad"_s));
        QVERIFY(stage.tessel.waitUntilBarGone());
    }

    void heldModifiersNeitherJoinNorStick()
    {
        WaylandStage stage;
        stage.tessel.settings = { { u"triggerKeyCode"_s, 49 }, { u"triggerModifiers"_s, 0x60000 } };
        QVERIFY(stage.start() && stage.open(u"tesserae"_s, Kind::FeatherPad));
        const QPoint pointer(1000, 600);
        stage.user().movePointer(pointer);
        for (const quint32 key : { KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_SPACE })
            stage.user().press(key);
        QVERIFY(stage.tessel.waitForBar(pointer));
        for (const quint32 key : { KEY_SPACE, KEY_LEFTSHIFT, KEY_LEFTCTRL })
            stage.user().release(key);
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?tesserae"_s });
    }

    void terminalWithoutSelection()
    {
        WaylandStage stage;
        QVERIFY(stage.start());
        QVERIFY(stage.editor.emplace(stage.session, Kind::Foot).open(u"output"_s));
        stage.user().tap(KEY_F2);
        QVERIFY(stage.logs(noText));
        QVERIFY(stage.session.clipboard().isEmpty());
        // The program notices an interrupt that is meant for it.
        QCOMPARE(stage.editor->interrupts(), 0);
        stage.user().tap(KEY_C, { KEY_LEFTCTRL });
        QTRY_COMPARE(stage.editor->interrupts(), 1);
    }

    void hostileOwners_data()
    {
        QTest::addColumn<QStringList>("mode");
        QTest::addColumn<QString>("expected"); // null: nothing is captured; else its beginning
        QTest::newRow("never answers") << QStringList { u"never-answers"_s } << QString();
        QTest::newRow("dies") << QStringList { u"dies-while-sending"_s } << QString();
        QTest::newRow("files") << QStringList { u"files"_s } << QString();
        QTest::newRow("16 MiB") << QStringList { u"incr"_s, u"16777216"_s } << u"abcdefghijkl"_s;
    }

    /// X11 programs, whose clipboard the compositor hands on.
    void hostileOwners()
    {
        QFETCH(QStringList, mode);
        QFETCH(QString, expected);
        WaylandStage stage;
        QVERIFY(stage.start(WaylandOptions { .x11 = true }));
        stage.session.launch(QStringLiteral(TESSEL_HOSTILE_OWNER), mode);
        QVERIFY(stage.session.waitForFocus(u"HostileOwner"_s));
        stage.user().tap(KEY_F2);
        if (expected.isNull())
            QVERIFY(stage.logs(noText));
        else
            QVERIFY(stage.logs(u"SELECTED TEXT: "_s + expected));
        QVERIFY(stage.tessel.process().isRunning());
    }

    void defaultActions_data() { DefaultActionCases::addRows(); }

    void defaultActions()
    {
        WaylandStage stage;
        QVERIFY(stage.session.start());
        DefaultActionCases::run(stage);
    }

    /// Without it they could not be given another role.
    void popupsAreNoWindowsForQt()
    {
        WaylandStage stage;
        QVERIFY(stage.session.start());
        stage.session.setVariable(u"WAYLAND_DEBUG"_s, u"1"_s);
        QVERIFY(stage.tessel.start());
        QVERIFY(stage.open());
        QVERIFY(stage.tessel.summon());
        const QString requests = stage.tessel.process().errorOutput();
        QVERIFY(requests.contains(u".get_layer_surface("_s));
        QVERIFY(!requests.contains(u".get_xdg_surface("_s));
    }

    void leavesNothingBehind()
    {
        WaylandStage stage;
        QVERIFY(stage.start() && stage.open());
        QList<qsizetype> before;
        for (int trigger = 0; trigger < 10; ++trigger) {
            QVERIFY(stage.tessel.summon());
            stage.user().tap(trigger % 2 ? KEY_ESC : KEY_1);
            QVERIFY(stage.tessel.waitUntilBarGone());
            const auto process = stage.tessel.process().processId();
            if (trigger == 3)
                before = countsOf(process);
            else if (trigger > 3)
                QTRY_COMPARE(countsOf(process), before);
        }
    }

    void compositorEnds()
    {
        WaylandStage stage;
        QVERIFY(stage.start() && stage.open());
        QVERIFY(stage.tessel.summon());
        ChildProcess &tessel = stage.tessel.process();
        stage.session.endCompositor();
        QVERIFY(tessel.waitForExit());
        QVERIFY(tessel.exitCode() != 0); // Qt may notice first, and has one of its own
        QVERIFY2(tessel.output().contains(u"ERROR: "), qPrintable(tessel.output()));
    }
};

QTEST_GUILESS_MAIN(tst_WaylandMainJob)
#include "tst_WaylandMainJob.moc"
