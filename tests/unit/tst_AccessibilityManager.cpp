// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "capture/AccessibilityManager.h"
#include "platform/fake/FakePlatform.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// What the application in front puts on the pasteboard, and when after the copy request.
struct Answer
{
    int after; // milliseconds
    std::optional<QString> text; // nothing: something that is not text
};

}
Q_DECLARE_METATYPE(QList<Answer>)

class tst_AccessibilityManager : public QObject
{
    Q_OBJECT

    FakePlatform m_platform;
    QElapsedTimer m_clock;

    AccessibilityManager manager()
    {
        return AccessibilityManager({ m_platform.workspace(), m_platform.copyRequest(),
                                      m_platform.pasteboard(),
                                      [this] { return m_clock.elapsed(); } });
    }

private Q_SLOTS:
    void init() { m_clock.start(); }

    void capture_data()
    {
        QTest::addColumn<QList<Answer>>("answers");
        QTest::addColumn<QString>("expected"); // null: nothing is captured
        QTest::addColumn<int>("poll"); // the one that ends the capture, at the earliest
        QTest::addColumn<int>("held"); // how long keys cannot be pressed, in milliseconds
        const auto row
            = [](const char *name, const QList<Answer> &answers, const QString &expected, int poll,
                 int held = 0) { QTest::newRow(name) << answers << expected << poll << held; };
        // What was there before does not count, even the same text.
        row("at once", { { 0, u"word"_s }, { 150, u"later"_s } }, u"word"_s, 1);
        row("line ends", { { 0, u"a\r\nb\rc"_s } }, u"a\nb\nc"_s, 1);
        row("empty first", { { 0, u""_s }, { 150, u"then text"_s } }, u"then text"_s, 2);
        row("image first", { { 0, {} }, { 250, u"then text"_s }, { 350, u"later"_s } },
            u"then text"_s, 3);
        row("too late", { { 560, u"x"_s } }, {}, 5);
        row("modifiers held", { { 350, u"word"_s } }, u"word"_s, 4, 300);
    }

    void capture()
    {
        QFETCH(QList<Answer>, answers);
        QFETCH(QString, expected);
        QFETCH(int, poll);
        QFETCH(int, held);
        auto &clipboard = m_platform.pasteboard();
        clipboard.put(u"word"_s);
        QObject context;
        qint64 pressed = 0;
        m_platform.copyRequest().onCopy = [&] {
            pressed = m_clock.elapsed();
            for (const Answer &answer : answers)
                QTimer::singleShot(answer.after, Qt::PreciseTimer, &context,
                                   [&clipboard, answer] { clipboard.put(answer.text); });
        };
        QPromise<void> ready;
        ready.start();
        m_platform.copyRequest().ready = ready.future();
        QTimer::singleShot(held, Qt::PreciseTimer, &context, [&] {
            if (held)
                clipboard.put(u"before the keys"_s);
            ready.finish();
        });
        auto accessibility = manager();
        const qint64 start = m_clock.elapsed();
        const auto captured = QCoro::waitFor(accessibility.getSelectedTextInfo());
        const qint64 took = m_clock.elapsed() - start;

        QCOMPARE(captured.has_value(), !expected.isNull());
        if (captured) {
            QCOMPARE(captured->text, expected);
            QCOMPARE(captured->bundleId, u"org.test.Editor"_s);
        }
        QVERIFY2(took >= held + poll * 100 - 5, qPrintable(QString::number(took)));
        QVERIFY(*accessibility.millisecondsSinceSimulation() >= start + took - pressed - 5);
    }

    void markedText_data()
    {
        QTest::addColumn<bool>("isTerminal");
        QTest::addColumn<bool>("isMarked");
        QTest::addColumn<bool>("answers"); // the application tells that it has seen the shortcut
        QTest::addColumn<int>("nothingAfter"); // when that is known, in polls; -1: it is not
        QTest::newRow("terminal") << true << true << false << -1;
        QTest::newRow("terminal, nothing marked") << true << false << false << 0;
        QTest::newRow("application") << false << true << true << -1;
        QTest::newRow("application, nothing marked") << false << false << true << 2;
        QTest::newRow("silent application, nothing marked") << false << false << false << -1;
    }

    void markedText()
    {
        QFETCH(bool, isTerminal);
        QFETCH(bool, isMarked);
        QFETCH(bool, answers);
        QFETCH(int, nothingAfter);
        FakePlatform platform;
        platform.workspace().front->isTerminal = isTerminal;
        platform.copyRequest().answers = answers;
        platform.copyRequest().onCopyMarked = [&](CopyRequest::Marked marked) {
            if ((marked == CopyRequest::Marked::ever) != isTerminal)
                return false;
            if (isMarked)
                platform.pasteboard().put(u"marked"_s);
            return isMarked;
        };
        AccessibilityManager accessibility({ platform.workspace(), platform.copyRequest(),
                                             platform.pasteboard(),
                                             [this] { return m_clock.elapsed(); } });
        int toldAfter = -1;
        const qint64 start = m_clock.elapsed();
        const auto captured = QCoro::waitFor(accessibility.getSelectedTextInfo(
            [&] { toldAfter = int((m_clock.elapsed() - start) / 100); }));
        QCOMPARE(captured.has_value(), isMarked);
        QCOMPARE(toldAfter, nothingAfter);
        QCOMPARE(platform.copyRequest().requests.isEmpty(), isTerminal); // never sent anything
    }

    void withoutApplicationNothingIsSent()
    {
        const auto front = std::exchange(m_platform.workspace().front, {});
        const auto requests = m_platform.copyRequest().requests.size();
        auto accessibility = manager();
        QVERIFY(!QCoro::waitFor(accessibility.getSelectedTextInfo()));
        QCOMPARE(m_platform.copyRequest().requests.size(), requests);
        QVERIFY(!accessibility.millisecondsSinceSimulation());
        m_platform.workspace().front = front;
    }

    void overlappingCapturesCompareWithTheirOwnStart()
    {
        auto accessibility = manager();
        m_platform.copyRequest().onCopy = {};
        auto first = accessibility.getSelectedTextInfo();
        m_platform.pasteboard().put(u"copied by the first"_s);
        auto second = accessibility.getSelectedTextInfo();
        QCOMPARE(QCoro::waitFor(first)->text, u"copied by the first"_s);
        QVERIFY(!QCoro::waitFor(second));
    }
};

QTEST_GUILESS_MAIN(tst_AccessibilityManager)
#include "tst_AccessibilityManager.moc"
