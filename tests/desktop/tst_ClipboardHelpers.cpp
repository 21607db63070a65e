// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/HelperStage.h"
#include "platform/x11/X11Connection.h"
#include "support/XClipboard.h"

#include <QTest>

#include <xcb/xcb.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;

namespace {

/// Asks for the clipboard as the ICCCM has it, without any toolkit.
class Requestor
{
public:
    Requestor()
        : m_x(*X11Connection::open())
        , m_window(xcb_generate_id(m_x->xcb()))
    {
        xcb_create_window(m_x->xcb(), 0, m_window, m_x->root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    }

    [[nodiscard]] quint32 atom(const char *name) const { return m_x->atom(name); }

    /// False when the owner refuses.
    bool convert(const char *target, const char *property)
    {
        xcb_convert_selection(m_x->xcb(), m_window, atom("CLIPBOARD"), atom(target), atom(property),
                              XCB_CURRENT_TIME);
        xcb_flush(m_x->xcb());
        const XcbPtr<xcb_generic_event_t> event(xcb_wait_for_event(m_x->xcb()));
        return event
            && X11Event(event.get()).as<xcb_selection_notify_event_t>().property != XCB_NONE;
    }

    [[nodiscard]] QByteArray value(const char *property) const
    {
        return m_x->property(m_window, atom(property));
    }

    [[nodiscard]] QList<quint32> atoms(const char *property) const
    {
        return m_x->items(m_window, property);
    }

    void setAtoms(const char *property, const QList<quint32> &atoms)
    {
        xcb_change_property(m_x->xcb(), XCB_PROP_MODE_REPLACE, m_window, atom(property),
                            atom("ATOM_PAIR"), 32, static_cast<quint32>(atoms.size()),
                            atoms.constData());
    }

private:
    std::unique_ptr<X11Connection> m_x;
    quint32 m_window;
};

}

class tst_ClipboardHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray every;
        for (int i = 0; i < 256; ++i)
            every += static_cast<char>(i);
        QTest::newRow("text") << QByteArray("caf\xc3\xa9 \xed\x95\x9c\n");
        QTest::newRow("nothing") << QByteArray("");
        QTest::newRow("every byte") << every;
        QTest::newRow("NUL at the end") << QByteArray("a\0", 2);
        QTest::newRow("8 MiB") << every.repeated(32 << 10);
    }

    void roundTrip()
    {
        QFETCH(QByteArray, bytes);
        Stage stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.session.errorString()));
        stage.write(u"in"_s, bytes);
        // Command substitution waits until nobody has its pipe any more.
        QCOMPARE(stage.run(u"x=$(pbcopy <in 2>&1 3>&1); pbpaste >out"_s), 0);
        QVERIFY(stage.file(u"out"_s) == bytes);
        QVERIFY(stage.isServing());
        QVERIFY(stage.session.clipboard().text() == QString::fromUtf8(bytes));
        stage.session.clipboard().setText(u"other"_s);
        QTRY_VERIFY(!stage.isServing());
        QCOMPARE(stage.run(u"pbpaste >out"_s), 0);
        QCOMPARE(stage.file(u"out"_s), "other");
    }

    /// Letters beyond ASCII by our own tr, the rest by the system's; which another of ours on the
    /// PATH is not, as with the build folder and an installed program.
    void tr()
    {
        Stage stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.session.errorString()));
        stage.write(u"in"_s, "straße é 한글 ж\n");
        QCOMPARE(stage.run(u"mkdir a && cp \"$(command -v tr)\" a && ln -s a linked &&"
                           "PATH=$PWD/a:$PATH:$PWD/linked &&"
                           "tr '[:lower:]' '[:upper:]' <in | tr -d A >out"_s),
                 0);
        QCOMPARE(stage.file(u"out"_s), "STRSSE É 한글 Ж\n");
    }

    void refusedInput()
    {
        Stage stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.session.errorString()));
        stage.session.clipboard().setText(u"before"_s);
        for (const QString &command : { u"pbcopy <&-"_s, u"pbcopy <."_s, u"yes | pbcopy"_s }) {
            QCOMPARE(stage.run(command + u" 2>err"_s), 1);
            QCOMPARE(stage.file(u"err"_s).count('\n'), 1);
            QVERIFY(stage.file(u"err"_s).startsWith("pbcopy: standard input: "));
        }
        QCOMPARE(stage.run(u"pbpaste >out"_s), 0);
        QCOMPARE(stage.file(u"out"_s), "before");
    }

    void targets()
    {
        Stage stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.session.errorString()));
        QCOMPARE(stage.run(u"printf 'caf\\303\\251' | pbcopy"_s), 0);
        stage.enter();
        Requestor requestor;
        QVERIFY(requestor.convert("STRING", "A"));
        QCOMPARE(requestor.value("A"), "caf\xe9");
        QVERIFY(requestor.convert("TIMESTAMP", "A"));
        QVERIFY(requestor.atoms("A").value(0) != 0);
        QVERIFY(!requestor.convert("image/png", "A"));
        QVERIFY(requestor.convert("TARGETS", "A"));
        for (const char *target :
             { "TARGETS", "MULTIPLE", "UTF8_STRING", "text/plain;charset=utf-8", "STRING" })
            QVERIFY2(requestor.atoms("A").contains(requestor.atom(target)), target);

        const quint32 utf8 = requestor.atom("UTF8_STRING");
        const quint32 image = requestor.atom("image/png");
        requestor.setAtoms("M", { utf8, requestor.atom("B"), image, requestor.atom("C") });
        QVERIFY(requestor.convert("MULTIPLE", "M"));
        QCOMPARE(requestor.value("B"), "caf\xc3\xa9");
        const QList<quint32> answered { utf8, requestor.atom("B"), 0, requestor.atom("C") };
        QCOMPARE(requestor.atoms("M"), answered);

        QCOMPARE(stage.run(u"printf '\\355\\225\\234' | pbcopy"_s), 0);
        QVERIFY(!requestor.convert("STRING", "A"));
    }

    void withoutDisplay()
    {
        Stage stage;
        QVERIFY2(stage.prepare(), qPrintable(stage.session.errorString()));
        for (const char *helper : { "pbcopy", "pbpaste" }) {
            const QString name = QString::fromLatin1(helper);
            QCOMPARE(stage.run(u"DISPLAY=:987 "_s + name + u" </dev/null >out 2>err"_s), 1);
            QVERIFY(stage.file(u"out"_s).isEmpty());
            QVERIFY(stage.file(u"err"_s).startsWith(helper));
        }
    }
};

QTEST_GUILESS_MAIN(tst_ClipboardHelpers)
#include "tst_ClipboardHelpers.moc"
