// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "calendar-entry/DatePhrase.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// A Saturday.
const QDateTime now(QDate(2026, 11, 21), QTime(14, 0));

}

class tst_DatePhrase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void find_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected"); // "" when there is none
        const auto row = [](const QString &text, const QString &expected) {
            QTest::newRow(qPrintable(text)) << text << expected;
        };

        // Korean
        row(u"모레 오전 10시 30분"_s, u"2026-11-23 10:30"_s);
        row(u"다음 주 월요일 오후 3시 반"_s, u"2026-11-23 15:30"_s);
        row(u"다다음주 금요일"_s, u"2026-12-04"_s);
        row(u"이번주 금요일에 만나"_s, u"2026-11-27"_s);
        row(u"토요일"_s, u"2026-11-28"_s);
        row(u"2025년 3월 1일에 있었던 일"_s, u"2025-03-01"_s);
        row(u"1월 5일"_s, u"2027-01-05"_s);
        row(u"25일(수) 14:00"_s, u"2026-11-25 14:00"_s);
        row(u"20일 오전"_s, u"2026-12-20"_s);
        row(u"2주 뒤에"_s, u"2026-12-05"_s);
        row(u"사흘 뒤 밤 12시"_s, u"2026-11-25 00:00"_s);
        row(u"3개월 후"_s, u"2027-02-21"_s);
        row(u"저녁 일곱 시에 만나자"_s, u"2026-11-21 19:00"_s);
        row(u"오전 9시에 만나자"_s, u"2026-11-22 09:00"_s);
        row(u"2026. 12. 1. 오후 2:15"_s, u"2026-12-01 14:15"_s);
        row(u"내일"_s.normalized(QString::NormalizationForm_D), u"2026-11-22"_s);

        // English
        row(u"the day after tomorrow at 15:30"_s, u"2026-11-23 15:30"_s);
        row(u"Dinner tonight at 8"_s, u"2026-11-21 20:00"_s);
        row(u"See you on Friday at 3"_s, u"2026-11-27 15:00"_s);
        row(u"This Saturday"_s, u"2026-11-21"_s);
        row(u"25 November, 3-5 p.m."_s, u"2026-11-25 15:00"_s);
        row(u"the 1st of May"_s, u"2027-05-01"_s);
        row(u"2026-11-25T03:30:00"_s, u"2026-11-25 03:30"_s);
        row(u"due 2/3"_s, u"2027-02-03"_s);
        row(u"25/11/2026"_s, u"2026-11-25"_s);
        row(u"Feb 29"_s, u"2028-02-29"_s);
        row(u"in two weeks, at 9:15"_s, u"2026-12-05 09:15"_s);
        row(u"Call at 1:30pm"_s, u"2026-11-22 13:30"_s);
        row(u"tomorrow at midnight"_s, u"2026-11-23 00:00"_s);
        row(u"tomorrow at 7 in the morning"_s, u"2026-11-22 07:00"_s);
        row(u"Fix the bug. Review on Thursday, not Friday"_s, u"2026-11-26"_s);

        // Chinese
        row(u"今天下午三点半开会"_s, u"2026-11-21 15:30"_s);
        row(u"大后天见"_s, u"2026-11-24"_s);
        row(u"下周一早上九点一刻"_s, u"2026-11-23 09:15"_s);
        row(u"下下周三"_s, u"2026-12-02"_s);
        row(u"星期五晚上8点20"_s, u"2026-11-27 20:20"_s);
        row(u"十一月二十五日"_s, u"2026-11-25"_s);
        row(u"2026年12月1日"_s, u"2026-12-01"_s);
        row(u"两个星期后"_s, u"2026-12-05"_s);

        // What only looks like one.
        const QString others
            = u"Version 1.2.3 and 10.15.7␞It costs $12.50␞You may 5 of them keep␞open 24/7␞"
              "1/2 cup of milk, 3/4␞ratio 16:9, score 3:30␞the sun sat down␞192.168.1.25␞"
              "at 100 percent␞in 3 words␞call 555-1234␞오늘날의 세계␞3시간 동안␞"
              "다시 혹시 잠시␞1월 40일␞한시적으로␞3일 동안␞有一点问题␞一周三次␞上周五␞"
              "3小时␞2026-13-45"_s;
        for (const QString &text : others.split(u'␞'))
            row(text, QString());
    }

    void find()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        const auto found = findDatePhrase(text, now);
        QString actual;
        if (found) {
            actual = found->date.toString(Qt::ISODate);
            if (found->time)
                actual += found->time->toString(u" HH:mm");
        }
        QCOMPARE(actual, expected);
    }

    /// Ends at all: a search from each place to the end would take days.
    void longText()
    {
        QVERIFY(!findDatePhrase(QString(1 << 20, u'1'), now));
        QVERIFY(!findDatePhrase(QString(1 << 20, u' '), now));
        QVERIFY(!findDatePhrase(QString(u"next "_s).repeated(1 << 18), now));
    }
};

QTEST_APPLESS_MAIN(tst_DatePhrase)
#include "tst_DatePhrase.moc"
