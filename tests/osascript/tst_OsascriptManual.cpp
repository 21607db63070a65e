// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include <Manual.h>

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_OsascriptManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isUpToDate();
};

/// "ninja update-applescript-manual" writes it.
void tst_OsascriptManual::isUpToDate()
{
    QFile file(QStringLiteral(OSASCRIPT_MANUAL));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(file.readAll()) == osascript::manual());
}

QTEST_GUILESS_MAIN(tst_OsascriptManual)
#include "tst_OsascriptManual.moc"
