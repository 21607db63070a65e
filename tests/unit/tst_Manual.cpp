// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Pattern.h"
#include "config/ConfigManager.h"
#include "config/ResourceBundle.h"
#include "files/Files.h"

#include <QRegularExpression>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_Manual : public QObject
{
    Q_OBJECT

    /// All that an expression finds on a page, by its groups.
    static QList<QStringList> found(const QString &page, const QString &expression)
    {
        const QString text = QString::fromUtf8(readFile(QStringLiteral(TESSEL_MANUAL "/") + page));
        const QRegularExpression pattern(expression, QRegularExpression::MultilineOption);
        QList<QStringList> matches;
        for (const auto &match : pattern.globalMatch(text))
            matches.append(match.capturedTexts());
        return matches;
    }

private Q_SLOTS:
    void actionsAreValid()
    {
        const ResourceBundle bundle(QStringLiteral(TESSEL_BUNDLE));
        QMap<ActionType, int> examples;
        for (const QStringList &block : found(u"actions.md"_s, u"^```json\\n([^`]+)```$"_s)) {
            const QString json = u"{\"excludedBundleIds\":[],\"customActions\":[%1]}"_s;
            const auto config = decodeConfig(json.arg(block[1]).toUtf8());
            QVERIFY2(config, qUtf8Printable(block[1]));
            const ActionConfig &action = config->customActions.first();
            QVERIFY2(ConfigManager::validateAction(action), qUtf8Printable(action.id));
            QVERIFY2(!bundle.iconImage(action.iconName).isNull(), qUtf8Printable(action.id));
            QVERIFY2(!action.regex || Pattern::isValid(*action.regex), qUtf8Printable(action.id));
            ++examples[action.type];
        }
        QCOMPARE(examples.values(), QList<int>(qsizetype(actionTypes().size()), 3));
    }

    void expressionsMatch()
    {
        const auto rows = found(u"regular-expressions.md"_s,
                                u"^\\|[^|`]+\\| `(.+?)` \\| `(.+?)` \\| `(.+?)` \\|$"_s);
        QCOMPARE(rows.size(), 10);
        for (const QStringList &row : rows) {
            MatchBudget budget;
            QCOMPARE(Pattern(row[1]).firstMatch(row[2], budget), std::optional(row[3]));
        }
    }
};

QTEST_GUILESS_MAIN(tst_Manual)
#include "tst_Manual.moc"
