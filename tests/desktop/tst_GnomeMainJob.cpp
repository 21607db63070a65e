// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "desktop/WaylandTessel.h"
#include "support/GnomeSession.h"

#include <QTest>

#include <linux/input-event-codes.h>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Desktop;
using Kind = WaylandEditorKind;

namespace {

using GnomeStage = BasicStage<GnomeSession, WaylandTessel, WaylandEditor>;

}

/// The program on GNOME, whose shell does what other compositors leave to their clients.
class tst_GnomeMainJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applications_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::newRow("gnome-text-editor") << Kind::GnomeTextEditor;
        QTest::newRow("mousepad") << Kind::Mousepad;
        QTest::newRow("featherpad on X") << Kind::FeatherPadOnX;
        QTest::newRow("sakura") << Kind::Sakura;
    }

    void applications()
    {
        QFETCH(Kind, kind);
        GnomeSession session;
        QVERIFY2(session.start(), qPrintable(session.errorString()));
        WaylandEditor editor(session, kind);
        QVERIFY(editor.open(u"tiles & grout"_s) && editor.selectAll());
        session.user().movePointer({ 1000, 600 });
    }
};

QTEST_GUILESS_MAIN(tst_GnomeMainJob)
#include "tst_GnomeMainJob.moc"
