// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/DefaultActionCases.h"
#include "desktop/SelectionLoop.h"
#include "support/GnomeSession.h"

#include <QDBusMessage>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Kind = WaylandEditorKind;

namespace {

using GnomeStage = BasicWaylandStage<GnomeSession>;

const QStringList opened { u"tessel-test://open?tesserae"_s };

/// What the extension answers to somebody on the bus: the name of an error, or nothing.
QString askExtension(const GnomeSession &session, const QString &method,
                     const QVariantList &arguments)
{
    auto call = QDBusMessage::createMethodCall(u"org.gnome.Shell"_s, u"/com/tessel/app/Shell"_s,
                                               u"com.tessel.app.Shell"_s, method);
    call.setArguments(arguments);
    return session.bus().call(call).errorName();
}

}

/// The program on GNOME, whose shell does what other compositors leave to their clients.
class tst_GnomeMainJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensTheSelection_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("layout");
        QTest::addColumn<bool>("byMouse");
        QTest::newRow("gnome-text-editor") << Kind::GnomeTextEditor << u"us"_s << false;
        QTest::newRow("mousepad, ru") << Kind::Mousepad << u"ru"_s << false;
        QTest::newRow("featherpad, click") << Kind::FeatherPad << u"us"_s << true;
        QTest::newRow("featherpad on X, de") << Kind::FeatherPadOnX << u"de"_s << true;
        QTest::newRow("sakura") << Kind::Sakura << u"us"_s << false;
    }

    void opensTheSelection()
    {
        QFETCH(Kind, kind);
        QFETCH(QString, layout);
        QFETCH(bool, byMouse);
        GnomeStage stage;
        QVERIFY(stage.start(GnomeOptions { .keyboardLayout = layout }));
        SelectionLoop::run(stage, kind, { { 1000, 600 }, 1, byMouse });
    }

    void isDismissedAndComesBack()
    {
        GnomeStage stage;
        QVERIFY(stage.start() && stage.open());
        QVERIFY(stage.tessel.summon());
        stage.user().tap(KEY_ESC);
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.tessel.summon());
        stage.user().click({ 900, 200 });
        QVERIFY(stage.tessel.waitUntilBarGone());
        stage.user().click({ 400, 250 });
        QVERIFY(stage.editor->selectAll());
        QVERIFY(stage.tessel.summon());
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
    }

    void defaultActions_data() { DefaultActionCases::addRows(); }

    void defaultActions()
    {
        GnomeStage stage;
        QVERIFY2(stage.session.start(), qPrintable(stage.session.errorString()));
        DefaultActionCases::run(stage);
    }

    /// There is one keyboard state for all: the copy waits for them.
    void heldModifiersNeitherJoinNorStick()
    {
        GnomeStage stage;
        stage.tessel.settings = { { u"triggerKeyCode"_s, 49 }, { u"triggerModifiers"_s, 0x60000 } };
        QVERIFY(stage.start() && stage.open(u"tesserae"_s, Kind::GnomeTextEditor));
        const QPoint pointer(1000, 600);
        stage.user().movePointer(pointer);
        stage.user().tap(KEY_SPACE, { KEY_LEFTCTRL, KEY_LEFTSHIFT });
        QVERIFY(stage.tessel.waitForBar(pointer));
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
    }

    /// A letter, so that it is seen whether the application gets it: when nothing is marked there.
    void triggerIsKeptFromSelections()
    {
        GnomeStage stage;
        stage.tessel.settings = { { u"triggerKeyCode"_s, 38 } }; // J
        QVERIFY(stage.start() && stage.open());
        const QPoint pointer(1000, 600);
        stage.user().movePointer(pointer);
        stage.user().tap(KEY_J);
        QVERIFY(stage.tessel.waitForBar(pointer));
        stage.user().tap(KEY_ESC);
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.editor->holds(u"tesserae"_s));
        stage.tessel.awaitTrigger();
        stage.user().tap(KEY_END);
        stage.user().tap(KEY_J);
        QVERIFY(stage.logs(u"simulation failed or no text selected"_s));
        // Selecting the text too soon would replace it.
        const auto isChanged = [&] {
            return stage.session.evaluate(u"global.display.focus_window.title"_s)
                .toString()
                .startsWith(u'*');
        };
        QTRY_VERIFY(isChanged());
        QVERIFY(stage.editor->holds(u"tesseraej"_s));
    }

    void excludedApplication()
    {
        GnomeStage stage;
        stage.tessel.settings
            = { { u"excludedBundleIds"_s, QJsonArray { u"org.gnome.TextEditor"_s } } };
        QVERIFY(stage.start() && stage.open(u"tesserae"_s, Kind::GnomeTextEditor));
        stage.user().tap(KEY_F2);
        QVERIFY(stage.logs(u"App excluded: org\\.gnome\\.TextEditor"_s));
        QVERIFY(stage.tessel.waitUntilBarGone());
    }

    void extensionRefusesOthers()
    {
        const QString right(64, u'a');
        const QString refused = u"org.freedesktop.DBus.Error.AccessDenied"_s;
        const std::pair<QString, QVariantList> methods[] = {
            { u"Attach"_s, {} },
            { u"SetTrigger"_s, { QString() } },
            { u"HoldsModifiers"_s, {} },
            { u"Windows"_s, {} },
            { u"Activate"_s, { 1ULL } },
            { u"Close"_s, { 1ULL } },
            { u"Locate"_s, {} },
            { u"Present"_s, { u"title"_s, 1, 1 } },
            { u"Formats"_s, { 1U } },
            { u"SetClipboard"_s, { QByteArray("theirs") } },
            { u"PressKeys"_s, { QVariant::fromValue(QList<uint> { KEY_A }) } },
        };
        GnomeStage stage;
        QVERIFY2(stage.session.start(), qPrintable(stage.session.errorString()));
        const auto isRefused = [&] {
            for (const QString &token : { QString(), right }) {
                for (const auto &[method, arguments] : methods) {
                    const QString answer
                        = askExtension(stage.session, method, QVariantList { token } + arguments);
                    if (answer != refused)
                        qInfo().noquote() << method << answer;
                    if (answer != refused)
                        return false;
                }
            }
            return true;
        };
        QVERIFY(isRefused());
        QVERIFY(stage.tessel.start() && stage.open());
        QVERIFY(stage.tessel.summon());
        QVERIFY(isRefused());
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
        QCOMPARE(stage.session.clipboard(), u"tesserae"_s);
    }

    void extensionGoes_data()
    {
        QTest::addColumn<QString>("away"); // in the shell
        QTest::addColumn<QString>("back");
        const QString manager = u"Main.extensionManager.%1Extension('tessel@com.tessel.app')"_s;
        QTest::newRow("switched off") << manager.arg(u"disable"_s) << manager.arg(u"enable"_s);
        QTest::newRow("session locked") << u"Main.sessionMode.pushMode('unlock-dialog')"_s
                                        << u"Main.sessionMode.popMode('unlock-dialog')"_s;
    }

    void extensionGoes()
    {
        QFETCH(QString, away);
        QFETCH(QString, back);
        GnomeStage stage;
        QVERIFY(stage.start() && stage.open());
        QVERIFY(stage.tessel.summon());
        stage.session.evaluate(away);
        const QString ours = u"global.get_window_actors().filter(({meta_window}) => "
                             "meta_window.get_wm_class()?.includes('tessel')).length"_s;
        QTRY_COMPARE(stage.session.evaluate(ours), QJsonValue(0));
        QVERIFY(stage.tessel.process().isRunning());
        stage.session.evaluate(back);
        QVERIFY(stage.editor->selectAll());
        QVERIFY(stage.tessel.waitUntilBarGone());
        QVERIFY(stage.tessel.summon());
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);
    }

    /// The extension is installed by a button, for the next login. Until then marked text is known
    /// from XWayland.
    void withoutExtension()
    {
        const QString program = u"com.tessel.app"_s;
        GnomeStage stage;
        QVERIFY(stage.start(GnomeOptions { .extension = false }));
        QVERIFY(stage.session.waitForFocus(program)); // the notice
        stage.user().tap(KEY_TAB);
        stage.user().tap(KEY_SPACE);
        const QString file = u"/gnome-shell/extensions/tessel@com.tessel.app/service.js"_s;
        QTRY_VERIFY(QFile::exists(stage.session.dataPath() + file));
        QVERIFY(stage.session.waitForFocus(program)); // what to do now
        stage.user().tap(KEY_ESC);

        QVERIFY(stage.open(u"tesserae"_s, Kind::GnomeTextEditor));
        QVERIFY(stage.session.run(TesselProcess::path(), { u"--trigger"_s }));
        QVERIFY(stage.session.waitForFocus(program));
        stage.user().tap(KEY_1);
        QCOMPARE(stage.openedUrl(), opened);

        stage.tessel.process().end();
        QVERIFY2(stage.session.restartShell(), qPrintable(stage.session.errorString()));
        QVERIFY(stage.tessel.start() && stage.open());
        QVERIFY(stage.tessel.summon());
    }

    void helpers_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        const QString any = u"Hé 한글 Ж {Q}"_s;
        QTest::newRow("GTK") << Kind::GnomeTextEditor << u"Text Editor"_s << any;
        QTest::newRow("Qt 5, what the layout has")
            << Kind::FeatherPad << u"FeatherPad"_s << u"zü"_s;
        QTest::newRow("Qt on X") << Kind::FeatherPadOnX << u"FeatherPad"_s << any;
    }

    /// What scripts call, as a shell finds it.
    void helpers()
    {
        QFETCH(Kind, kind);
        QFETCH(QString, name);
        QFETCH(QString, text);
        GnomeStage stage;
        QVERIFY(stage.start(GnomeOptions { .keyboardLayout = u"de"_s }));
        QVERIFY(stage.open(u"."_s, kind));
        stage.session.launch(u"mousepad"_s, { u"--disable-server"_s });
        QVERIFY(stage.session.waitForFocus(u"mousepad"_s));
        stage.session.setVariable(
            u"PATH"_s, QStringLiteral(TESSEL_HELPERS ":") + qEnvironmentVariable("PATH"));
        const auto run = [&](const QString &command) {
            const bool isDone = stage.session.run(u"sh"_s, { u"-c"_s, command });
            if (!isDone)
                qInfo("%s", qPrintable(stage.session.errorString()));
            return isDone;
        };
        QVERIFY(run(u"osascript -e 'tell application \"%1\" to activate'"_s.arg(name)));
        QVERIFY(stage.editor->selectAll());
        QVERIFY(run(
            u"osascript -e 'tell application \"System Events\" to keystroke \"%1\"'"_s.arg(text)));
        QVERIFY(stage.editor->holds(text));
        QVERIFY(run(u"printf '한\\n' | pbcopy; pbpaste >out"_s));
        QCOMPARE(QString::fromUtf8(stage.file(u"out"_s)), u"한\n"_s);
        QCOMPARE(stage.session.clipboard(), u"한\n"_s);
    }

    void shellEnds()
    {
        GnomeStage stage;
        QVERIFY(stage.start() && stage.open());
        QVERIFY(stage.tessel.summon());
        ChildProcess &tessel = stage.tessel.process();
        stage.session.endShell();
        QVERIFY(tessel.waitForExit());
        QVERIFY(tessel.exitCode() != 0); // Qt may notice first, and has one of its own
        QVERIFY2(tessel.output().contains(u"ERROR: "), qPrintable(tessel.output()));
    }
};

QTEST_GUILESS_MAIN(tst_GnomeMainJob)
#include "tst_GnomeMainJob.moc"
