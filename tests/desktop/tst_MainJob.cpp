// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/TesselProgram.h"
#include "support/Editors.h"
#include "support/XClipboard.h"

#include <QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Selection = XClipboard::Selection;

namespace {

const auto firstKey = XKB_KEY_1;

}

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
        DesktopSession session;
        DesktopOptions options;
        options.compositor = compositor;
        QVERIFY2(session.start(options), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        Editor window(session, editor);
        QVERIFY(window.open(u"tiles & grout"_s));
        QVERIFY(window.selectAll());
        const quint32 active = session.user().activeWindow();
        const QPoint pointer(600, 500);
        session.user().movePointer(pointer);

        const QImage before = session.user().screenshot();
        const auto bar = tessel.summon();
        QVERIFY(bar);
        // Centred, its visible part ending ten pixels above the pointer.
        QCOMPARE(bar->geometry.x() + bar->geometry.width() / 2, pointer.x());
        QCOMPARE(bar->geometry.y() + bar->geometry.height() - 20, pointer.y() - 10);
        const QRect button(TesselProgram::button(*bar, 0) - QPoint(9, 9), QSize(18, 18));
        QTRY_VERIFY(session.user().screenshot(button) != before.copy(button));

        // The application below notices nothing.
        QCOMPARE(session.user().activeWindow(), active);
        QCOMPARE(session.clipboard().text(Selection::Primary), u"tiles & grout"_s);
        QCOMPARE(session.clipboard().text(Selection::Clipboard), u"tiles & grout"_s);

        if (byMouse)
            session.user().click(TesselProgram::button(*bar, 0));
        else
            session.user().tap(firstKey);
        QCOMPARE(session.urlRecorder().waitForUrls(1),
                 QStringList { u"tessel-test://open?tiles%20&%20grout"_s });
        QVERIFY(tessel.waitUntilBarGone());
        QCOMPARE(session.user().activeWindow(), active);
        QCOMPARE(window.interrupts(), 0);
        QVERIFY(window.isOpen());
    }

    void encodesWhateverIsSelected_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("encoded");
        QTest::newRow("spaces, plus, percent") << u"a+b c 100%"_s << u"a+b%20c%20100%25"_s;
        QTest::newRow("shell signs")
            << u"$(touch x) `id` ;|<>\"'"_s << u"$(touch%20x)%20%60id%60%20;%7C%3C%3E%22'"_s;
        QTest::newRow("hash, question mark") << u"#1? [x]{y}"_s << u"%231?%20%5Bx%5D%7By%7D"_s;
        QTest::newRow("scripts") << u"naïve 한국어 🙂"_s
                                 << u"na%C3%AFve%20%ED%95%9C%EA%B5%AD%EC%96%B4%20%F0%9F%99%82"_s;
        QTest::newRow("lines") << u"one\ntwo"_s << u"one%0Atwo"_s;
    }

    void encodesWhateverIsSelected()
    {
        QFETCH(QString, text);
        QFETCH(QString, encoded);
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        QVERIFY(tessel.start());
        Editor editor(session, EditorKind::Mousepad);
        QVERIFY(editor.open(text));
        QVERIFY(editor.selectAll());
        QVERIFY(tessel.summon());
        session.user().tap(firstKey);
        QCOMPARE(session.urlRecorder().waitForUrls(1),
                 QStringList { u"tessel-test://open?"_s + encoded });
    }

    void excludedApplicationGetsTheCopyButNoBar()
    {
        DesktopSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        TesselProgram tessel(session);
        tessel.settings.insert(u"excludedBundleIds"_s, QJsonArray { u"org.xfce.mousepad"_s });
        QVERIFY(tessel.start());
        Editor editor(session, EditorKind::Mousepad);
        QVERIFY(editor.open(u"private"_s));
        QVERIFY(editor.selectAll());
        session.user().tap(XKB_KEY_F2);
        QVERIFY(tessel.process()
                    .waitForOutput(QRegularExpression(u"App excluded: org\\.xfce\\.mousepad"_s))
                    .hasMatch());
        QCOMPARE(session.clipboard().text(Selection::Clipboard), u"private"_s);
        QVERIFY(!tessel.bar());
    }
};

QTEST_GUILESS_MAIN(tst_MainJob)
#include "tst_MainJob.moc"
