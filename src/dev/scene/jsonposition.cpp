#include "scene/jsonposition.h"

#include <QRegularExpression>

namespace NARV::DEV {

// The parser of the toolkit says of a text that ends too early that the fault is behind its end.
QString lineAndColumn(const QByteArray &text, int told)
{
    const int offset = qMin(told, text.size());
    const QByteArray before = text.left(offset);
    const int lineStart = before.lastIndexOf('\n') + 1;
    return QStringLiteral("%1:%2").arg(before.count('\n') + 1).arg(offset - lineStart + 1);
}

namespace {

//! Walks over a text that is known to be valid JSON.
class JsonWalker
{
public:
    explicit JsonWalker(const QByteArray &text)
        : m_text(text)
    {
        skipBlanks();
    }

    int offset() const { return m_offset; }

    //! To the value under key of the object that begins here; stays if there is none.
    bool enterMember(const QByteArray &key)
    {
        const QByteArray quoted = '"' + key + '"';
        return enter('{', [&](int) {
            const int start = m_offset;
            skipValue();
            const bool isIt = m_text.mid(start, m_offset - start) == quoted;
            skipBlanks();
            skip(1); // the colon
            return isIt;
        });
    }

    //! To the element of the array that begins here.
    bool enterElement(int index)
    {
        return enter('[', [&](int number) { return number == index; });
    }

private:
    //! Goes from value to value of what begins here until isWanted(number).
    template<typename IsWanted>
    bool enter(char opening, IsWanted isWanted)
    {
        const int start = m_offset;
        if (current() != opening)
            return false;
        for (int number = 0; number == 0 || current() == ','; ++number) {
            skip(1);
            if (current() == '}' || current() == ']' || !current())
                break;
            if (isWanted(number))
                return true;
            skipValue();
            skipBlanks();
        }
        m_offset = start;
        return false;
    }

    char current() const { return m_offset < m_text.size() ? m_text[m_offset] : '\0'; }

    void skip(int count)
    {
        m_offset += count;
        skipBlanks();
    }

    void skipBlanks()
    {
        while (isBlank(current()))
            ++m_offset;
    }

    void skipString()
    {
        for (++m_offset; current() && current() != '"'; ++m_offset)
            m_offset += current() == '\\';
        ++m_offset;
    }

    //! Past the value that begins here, without recursion.
    void skipValue()
    {
        int depth = 0;
        do {
            const char c = current();
            depth += c == '{' || c == '[';
            depth -= c == '}' || c == ']';
            if (c == '"')
                skipString();
            else
                ++m_offset;
            if (depth == 0 && isEnd(current()))
                return;
        } while (m_offset < m_text.size());
    }

    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
    static bool isEnd(char c)
    {
        return !c || c == ',' || c == ':' || c == ']' || c == '}' || isBlank(c);
    }

    const QByteArray &m_text;
    int m_offset = 0;
};

} // namespace

int jsonOffset(const QByteArray &text, const QString &path)
{
    static const QRegularExpression step(QStringLiteral("\\[(\\d+)\\]|([^.\\[]+)"));
    JsonWalker walker(text);
    auto steps = step.globalMatch(path);
    while (steps.hasNext()) {
        const QRegularExpressionMatch match = steps.next();
        const QString key = match.captured(2);
        const bool found = key.isEmpty() ? walker.enterElement(match.captured(1).toInt())
                                         : walker.enterMember(key.toUtf8());
        if (!found)
            break;
    }
    return walker.offset();
}

} // namespace NARV::DEV
