// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/Cases.h"

#include "files/Files.h"
#include "osascript/Manual.h"
#include "osascript/terms/Terms.h"

#include <QRegularExpression>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_OsascriptManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// "ninja update-applescript-manual" writes it.
    void isUpToDate()
    {
        QVERIFY(QString::fromUtf8(readFile(QStringLiteral(OSASCRIPT_MANUAL)))
                == Osascript::manual());
    }

    /// What the manual promises is used in at least one of the scripts with a known outcome.
    void hasCaseForEachTerm()
    {
        QString scripts;
        const QDir folder(QStringLiteral(OSASCRIPT_CASES));
        for (const QString &file : folder.entryList({ u"*.txt"_s })) {
            for (const Case &row : readCases(folder.filePath(file)))
                scripts += row.script + u'\n';
        }
        QStringList terms;
        for (const auto &term : Osascript::commandTerms())
            terms.append(term.words.toString());
        for (const auto &term : Osascript::nameTerms())
            terms.append(term.words.toString());
        for (const auto &term : Osascript::operatorTerms())
            terms.append(term.words.toString());
        for (const QString &term : std::as_const(terms)) {
            const QRegularExpression use(u"(?<![a-z])"_s + QRegularExpression::escape(term)
                                             + u"(?![a-z])"_s,
                                         QRegularExpression::CaseInsensitiveOption);
            QVERIFY2(use.match(scripts).hasMatch(), qPrintable(term));
        }
    }
};

QTEST_GUILESS_MAIN(tst_OsascriptManual)
#include "tst_OsascriptManual.moc"
