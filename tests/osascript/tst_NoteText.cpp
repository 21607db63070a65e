// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/NoteText.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_NoteText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void fileName_data();
    void fileName();
};

void tst_NoteText::text_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QString &body, const QString &expected) {
        QTest::newRow(name) << body << expected;
    };
    const auto wrapped
        = [](const QString &text) { return u"<html><body>"_s + text + u"</body></html>"_s; };
    row("lines", wrapped(u"one<br><br>two"_s), u"one\n\ntwo"_s);
    row("unescaped", wrapped(u"a < b && c <T> &amp; <b>x</b>"_s),
        u"a < b && c <T> &amp; <b>x</b>"_s);
    row("blocks that were selected", wrapped(u"<div><br>x<br></div>"_s), u"<div>\nx\n</div>"_s);
    row("another wrapper inside", wrapped(wrapped(u"x"_s)), wrapped(u"x"_s));
    row("white space is kept", wrapped(u"  x  "_s), u"  x  "_s);
    row("line breaks of all kinds", wrapped(u"a\r\nb\rc\nd"_s), u"a\nb\nc\nd"_s);
    row("plain text", u"just text"_s, u"just text"_s);
    row("no markup", u"a < b && c <T> R&D"_s, u"a < b && c <T> R&D"_s);
    row("breaks", u"a<br/>b<BR />c"_s, u"a\nb\nc"_s);
    row("blocks", u"<div>a</div><div>b</div>\n<p class=\"x\">c</p>"_s, u"a\nb\nc"_s);
    row("empty line", u"<div>a</div><div><br></div><div>b</div>"_s, u"a\n\nb"_s);
    row("heading and list", u"<h1>T</h1><ul><li>a</li><li>b</li></ul>"_s, u"T\na\nb"_s);
    row("words in a line", u"a <b>b</b><i> c</i> <a href=\"x\">d</a>"_s, u"a b c d"_s);
    row("entities", u"&lt;x&gt; &amp;amp; &quot;&#39;&#x41;&nbsp;"_s, u"<x> &amp; \"'A\u00A0"_s);
    row("no entities", u"&nothing; &#0; &#xD800; &"_s, u"&nothing; &#0; &#xD800; &"_s);
    row("head", u"<html><head><title>x</title></head><body><p>a</p></body></html>"_s, u"a"_s);
    row("empty", u""_s, u""_s);
}

void tst_NoteText::text()
{
    QFETCH(const QString, body);
    QTEST(Osascript::noteText(body), "expected");
}

void tst_NoteText::fileName_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << u"A title"_s << u"A title"_s;
    QTest::newRow("path") << u"../../etc/passwd"_s << u"etc passwd"_s;
    QTest::newRow("hidden") << u".bashrc"_s << u"bashrc"_s;
    QTest::newRow("option") << u"-rf"_s << u"rf"_s;
    QTest::newRow("control characters") << u"a\n\tb\u202Ec\u0000"_s << u"a b c"_s;
    QTest::newRow("other systems") << u"a:b*c?\"<>|"_s << u"a b c"_s;
    QTest::newRow("nothing left") << u"///"_s << u"Note"_s;
    QTest::newRow("empty") << u""_s << u"Note"_s;
    QTest::newRow("long") << u"가"_s.repeated(100) << u"가"_s.repeated(40);
    QTest::newRow("surrogates") << u"\U0001F600"_s.repeated(100) << u"\U0001F600"_s.repeated(30);
}

void tst_NoteText::fileName()
{
    QFETCH(const QString, title);
    QTEST(Osascript::noteFileName(title), "expected");
}

QTEST_GUILESS_MAIN(tst_NoteText)
#include "tst_NoteText.moc"
