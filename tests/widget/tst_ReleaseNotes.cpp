// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "widget/CpuTime.h"
#include "windows/ReleaseNotes.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_ReleaseNotes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesNotesPlain()
    {
        const std::pair<QString, QString> rows[] {
            { u" a < b && c > d\r\n\r\n\r\n\r\nsecond  \nthird "_s,
              u"a < b && c > d\n\nsecond\nthird"_s },
            { u"<p>one\ntwo</p>\n<P class='x'>three<br/>four</P>"_s, u"one two\n\nthree\nfour"_s },
            { u"<h2>New</h2><script>x()</script><ul><li>A &amp; B</li></ul>"_s,
              u"New\n\n• A & B"_s },
            { u"<!-- <p> --><style>p { }</style><img src='https://spy/'><b>x</b>"_s, u"x"_s },
            { u"Fast &mdash; &#50;&#x78;&nbsp;&hellip; AT&T &bogus;"_s,
              u"Fast — 2x … AT&T &bogus;"_s },
            { u"<p>&lt;b&gt; &amp;lt;</p>"_s, u"<b> &lt;"_s },
            { u"a\u202eb\u0007c\u2066d\u009b&#x202e;&#27;e"_s, u"abcde"_s },
            { u"<table><tr><td rowspan=9999 colspan=99999>x</table>"_s, u"x"_s },
            { u"<ul><li><b>"_s, u"•"_s },
        };
        for (const auto &[notes, expected] : rows) {
            QCOMPARE(plainText(notes), expected);
            const qint64 start = cpuTime();
            QVERIFY(plainText(notes.repeated(30'000)).size() <= 20000);
            QVERIFY2(cpuTime() - start < 2000, qUtf8Printable(notes));
        }
    }
};

QTEST_MAIN(tst_ReleaseNotes)
#include "tst_ReleaseNotes.moc"
