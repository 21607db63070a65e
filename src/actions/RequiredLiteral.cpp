// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/RequiredLiteral.h"

namespace Tessel {

namespace {

/// Walks over an expression and keeps the longest stretch of literals outside of all groups.
class LiteralFinder
{
public:
    explicit LiteralFinder(QStringView expression)
        : m_expression(expression)
    {
    }

    QStringView find()
    {
        for (; m_position < m_expression.size(); ++m_position) {
            if (!step(m_expression[m_position]))
                return {};
        }
        endStretch(m_position);
        return m_longest;
    }

private:
    /// False when the character makes it unclear what every match contains.
    bool step(QChar c)
    {
        switch (c.unicode()) {
        case u'|':
            return m_depth > 0;
        case u'(':
            endStretch(m_position);
            ++m_depth;
            return isPlainGroup();
        case u')':
            endStretch(m_position);
            return --m_depth >= 0;
        case u'?':
        case u'*':
            dropOptional();
            return true;
        case u'{':
            dropOptional();
            return skipTo(u'}');
        case u'[':
            endStretch(m_position);
            return skipSet();
        case u'\\':
            endStretch(m_position);
            return skipEscape();
        case u'+':
        case u'.':
        case u'^':
        case u'$':
            endStretch(m_position);
            return true;
        case u']':
        case u'}':
            return false;
        }
        return true;
    }

    [[nodiscard]] QChar next() const
    {
        return m_position + 1 < m_expression.size() ? m_expression[m_position + 1] : QChar();
    }

    /// Whether the parenthesis neither sets options nor begins a comment.
    [[nodiscard]] bool isPlainGroup() const
    {
        const QStringView inside = m_expression.mid(m_position + 1);
        return !inside.startsWith(u'?')
            || (inside.size() > 1 && QStringView(u":=!<>").contains(inside[1]));
    }

    /// What stands before the position may be missing in a match.
    void dropOptional()
    {
        qsizetype end = m_position;
        if (end > m_start && m_expression[--end].isLowSurrogate() && end > m_start)
            --end;
        endStretch(end);
    }

    void endStretch(qsizetype end)
    {
        if (m_depth == 0 && end - m_start > m_longest.size())
            m_longest = m_expression.mid(m_start, end - m_start);
        m_start = m_position + 1;
    }

    bool skipTo(QChar mark)
    {
        m_position = m_expression.indexOf(mark, m_position);
        m_start = m_position + 1;
        return m_position >= 0;
    }

    /// A set without nested sets and strings.
    bool skipSet()
    {
        m_position += next() == u'^' ? 1 : 0;
        if (next() == u']')
            return false;
        while (++m_position < m_expression.size()) {
            const QChar c = m_expression[m_position];
            if (c == u']')
                return skipTo(u']');
            if (c == u'[' || c == u'{' || (c == u'\\' && !skipEscape()))
                return false;
        }
        return false;
    }

    /// An escaped character that is no letter or digit, or an escape of two characters.
    bool skipEscape()
    {
        const QChar c = next();
        ++m_position;
        m_start = m_position + 1;
        const bool isPunctuation = c > u' ' && c <= u'~' && !c.isLetterOrNumber();
        return isPunctuation || QStringView(u"dDwWsSbBtnr").contains(c);
    }

    QStringView m_expression;
    qsizetype m_position = 0;
    qsizetype m_start = 0; ///< of the current stretch
    int m_depth = 0; ///< of open groups
    QStringView m_longest;
};

}

QStringView requiredLiteral(QStringView expression)
{
    return LiteralFinder(expression).find();
}

}
