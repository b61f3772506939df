#include "core/requirements_p.h"

#include <algorithm>

namespace NARV::INTERNAL {

static bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

static bool isIdentifierCharacter(QChar c)
{
    return isDigit(c) || (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || c == QLatin1Char('_');
}

bool isIdentifier(QStringView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isIdentifierCharacter);
}

namespace {

//! Takes pieces off the front of a text.
class RequirementsScanner
{
public:
    explicit RequirementsScanner(QStringView text)
        : m_text(text)
    {
    }

    bool atEnd() const { return m_position == m_text.size(); }
    void skipBlank() { m_position += lookingAt(QLatin1String(" ")) ? 1 : 0; }
    QStringView identifier() { return takeWhile(isIdentifierCharacter); }
    bool joiner() { return !oneOf({QLatin1String("&&"), QLatin1String("||")}).isEmpty(); }
    QStringView comparison()
    {
        return oneOf({QLatin1String("=="), QLatin1String("<"), QLatin1String(">")});
    }
    QStringView constant();

private:
    bool lookingAt(QLatin1String piece) const { return m_text.mid(m_position).startsWith(piece); }
    QStringView oneOf(std::initializer_list<QLatin1String> pieces);
    QStringView takeWhile(bool (*belongs)(QChar));

    QStringView m_text;
    qsizetype m_position = 0;
};

QStringView RequirementsScanner::oneOf(std::initializer_list<QLatin1String> pieces)
{
    for (QLatin1String piece : pieces) {
        if (!lookingAt(piece))
            continue;
        m_position += piece.size();
        return m_text.mid(m_position - piece.size(), piece.size());
    }
    return {};
}

QStringView RequirementsScanner::takeWhile(bool (*belongs)(QChar))
{
    const qsizetype start = m_position;
    while (!atEnd() && belongs(m_text[m_position]))
        ++m_position;
    return m_text.mid(start, m_position - start);
}

QStringView RequirementsScanner::constant()
{
    const QStringView word = oneOf({QLatin1String("true"), QLatin1String("false")});
    if (!word.isEmpty())
        return word;
    const qsizetype start = m_position;
    const bool isSigned = !oneOf({QLatin1String("+"), QLatin1String("-")}).isEmpty();
    if (takeWhile(isDigit).isEmpty())
        return {};
    if (!isSigned && !oneOf({QLatin1String(".")}).isEmpty() && takeWhile(isDigit).isEmpty())
        return {};
    return m_text.mid(start, m_position - start);
}

//! Reads one term and tells whether another one has to follow.
enum class TermResult
{
    Last,
    Joined,
    Malformed
};

TermResult readTerm(RequirementsScanner &scanner, RequirementsTerm &term)
{
    term.fieldId = scanner.identifier();
    if (term.fieldId.isEmpty())
        return TermResult::Malformed;
    scanner.skipBlank();
    if (scanner.atEnd())
        return TermResult::Last;
    term.comparison = scanner.comparison();
    if (!term.comparison.isEmpty()) {
        scanner.skipBlank();
        term.constant = scanner.constant();
        if (term.constant.isEmpty())
            return TermResult::Malformed;
        if (scanner.atEnd())
            return TermResult::Last;
        scanner.skipBlank();
    }
    if (!scanner.joiner())
        return TermResult::Malformed;
    scanner.skipBlank();
    return TermResult::Joined;
}

} // namespace

bool readRequirements(QStringView text, QVector<RequirementsTerm> &terms)
{
    terms.clear();
    RequirementsScanner scanner(text);
    TermResult result = TermResult::Joined;
    while (result == TermResult::Joined) {
        RequirementsTerm term;
        result = readTerm(scanner, term);
        terms.append(term);
    }
    if (result == TermResult::Malformed)
        terms.clear();
    return result == TermResult::Last;
}

} // namespace NARV::INTERNAL
