// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/Stage.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Selection = XClipboard::Selection;

/// Select text in an editor, press the trigger, see the bar, pick its action: the URL is opened.
class tst_MainJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensTheSelection_data()
    {
        QTest::addColumn<EditorKind>("editor");
        QTest::addColumn<bool>("compositor");
        QTest::addColumn<bool>("byMouse");
        QTest::newRow("mousepad, key") << EditorKind::Mousepad << true << false;
        QTest::newRow("mousepad, click, no compositor") << EditorKind::Mousepad << false << true;
        QTest::newRow("featherpad, click") << EditorKind::FeatherPad << true << true;
        QTest::newRow("featherpad, key, no compositor") << EditorKind::FeatherPad << false << false;
        QTest::newRow("xterm, key") << EditorKind::XTerm << true << false;
    }

    void opensTheSelection()
    {
        QFETCH(EditorKind, editor);
        QFETCH(bool, compositor);
        QFETCH(bool, byMouse);
        Stage stage;
        DesktopOptions options;
        options.compositor = compositor;
        QVERIFY(stage.start(options));
        const bool isTerminal = editor == EditorKind::XTerm; // its lines end at 80 columns
        const QString text = isTerminal
            ? u"tiles & grout"_s
            : u"a+b 100% $(x) `id` |<>\"' #1?[x]{y} naïve 한 🙂\ntwo"_s;
        QVERIFY(stage.open(text, editor));
        const quint32 active = stage.user().activeWindow();
        const QPoint pointer(600, 500);
        stage.user().movePointer(pointer);

        const QImage before = stage.user().screenshot();
        const auto bar = stage.tessel.summon();
        QVERIFY(bar);
        // Centred, its visible part ending ten pixels above the pointer.
        QCOMPARE(bar->geometry.x() + bar->geometry.width() / 2, pointer.x());
        QCOMPARE(bar->geometry.y() + bar->geometry.height() - 20, pointer.y() - 10);
        const QRect button(TesselProgram::button(*bar, 0) - QPoint(9, 9), QSize(18, 18));
        QTRY_VERIFY(stage.user().screenshot(button) != before.copy(button));

        // The application below notices nothing.
        QCOMPARE(stage.user().activeWindow(), active);
        QCOMPARE(stage.session.clipboard().text(Selection::Primary), text);
        QCOMPARE(stage.session.clipboard().text(Selection::Clipboard), text);

        if (byMouse)
            stage.user().click(TesselProgram::button(*bar, 0));
        else
            stage.user().tap(XKB_KEY_1);
        const QString encoded = isTerminal
            ? u"tiles%20&%20grout"_s
            : u"a+b%20100%25%20$(x)%20%60id%60%20%7C%3C%3E%22'%20%231?%5Bx%5D%7By%7D%20"
              "na%C3%AFve%20%ED%95%9C%20%F0%9F%99%82%0Atwo"_s;
        QCOMPARE(stage.openedUrl(), QStringList { u"tessel-test://open?"_s + encoded });
        QVERIFY(stage.tessel.waitUntilBarGone());
        QCOMPARE(stage.user().activeWindow(), active);
        QCOMPARE(stage.editor->interrupts(), 0);
        QVERIFY(stage.editor->isOpen());
    }
};

QTEST_GUILESS_MAIN(tst_MainJob)
#include "tst_MainJob.moc"
