// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Placeholder.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_Placeholder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void substitutes()
    {
        for (const auto &[text, value, expected] :
             { std::tuple { u"{text}-{text}"_s, u"{text}"_s, u"{text}-{text}"_s },
               { u"{te{text}xt}"_s, u""_s, u"{text}"_s },
               { u"{Text}{ text }"_s, u"a"_s, u"{Text}{ text }"_s },
               { u"{{text}}"_s, u"a"_s, u"{a}"_s } })
            QCOMPARE(Placeholder::substitute(text, value), expected);
    }

    void encodesForQuery()
    {
        for (const auto &[text, expected] :
             { std::pair { u"azAZ09!$&'()*+,-./:;=?@_~"_s, u"azAZ09!$&'()*+,-./:;=?@_~"_s },
               { u" \"#%<>[\\]^`{|}\x01\x7f\0"_s,
                 u"%20%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D%01%7F%00"_s },
               { u"e\u0301😀"_s, u"e%CC%81%F0%9F%98%80"_s },
               { u"\uFEFFa"_s, u"%EF%BB%BFa"_s } })
            QCOMPARE(Placeholder::percentEncodedForQuery(text), expected);
        for (const QString &half : { QString(QChar(0xD83D)), QString(QChar(0xDE00)) + u'a' })
            QVERIFY(!Placeholder::percentEncodedForQuery(half));
    }

    void escapesForAppleScript()
    {
        QCOMPARE(Placeholder::escapedForAppleScript(u"a\\\"b\" 'c'\n\\"_s),
                 u"a\\\\\\\"b\\\" 'c'\n\\\\"_s);
    }
};

QTEST_APPLESS_MAIN(tst_Placeholder)
#include "tst_Placeholder.moc"
