#include "core/xmlelement_p.h"

#include <QXmlStreamWriter>

namespace NARV::INTERNAL {

static constexpr QLatin1Char carriageReturn('\r');

static bool isXmlCharacter(ushort c)
{
    return (c >= 0x20 && c < 0xd800) || (c >= 0xe000 && c < 0xfffe) || c == '\t' || c == '\n' ||
           c == '\r';
}

//! The first character from position from on that XML cannot carry, or the size.
static int firstUnfit(const QString &text, int from)
{
    const int size = text.size();
    for (int i = from; i < size; ++i) {
        const QChar c = text.at(i);
        if (isXmlCharacter(c.unicode()))
            continue;
        if (!c.isHighSurrogate() || i + 1 >= size || !text.at(i + 1).isLowSurrogate())
            return i;
        ++i;
    }
    return size;
}

static QString withXmlCharacters(const QString &text)
{
    QString result = text;
    for (int i = firstUnfit(text, 0); i < text.size(); i = firstUnfit(text, i + 1))
        result[i] = QChar::ReplacementCharacter;
    return result;
}

XmlAttributes xmlAttributes(std::initializer_list<std::pair<const char *, const char *>> pairs)
{
    XmlAttributes result;
    for (const auto &[name, value] : pairs)
        result.append({QString::fromLatin1(name), QString::fromLatin1(value)});
    return result;
}

XmlElement::XmlElement(QXmlStreamWriter &writer, const QString &name, const XmlAttributes &fixed)
    : m_writer(writer)
{
    m_writer.writeStartElement(name);
    attributes(fixed);
}

XmlElement::~XmlElement()
{
    if (m_isClosed)
        m_writer.writeEndElement();
}

XmlElement &XmlElement::attribute(const QString &name, const QString &value)
{
    m_writer.writeAttribute(name, withXmlCharacters(value));
    return *this;
}

XmlElement &XmlElement::attribute(const QString &name, int value)
{
    m_writer.writeAttribute(name, QString::number(value));
    return *this;
}

XmlElement &XmlElement::attributes(const XmlAttributes &attributes)
{
    for (const auto &[name, value] : attributes)
        m_writer.writeAttribute(name, value);
    return *this;
}

// A carriage return is written as a reference: a reader makes a line feed of any other.
XmlElement &XmlElement::text(const QString &text)
{
    const QString fit = withXmlCharacters(text);
    int from = 0;
    for (int end = fit.indexOf(carriageReturn); end >= 0; end = fit.indexOf(carriageReturn, from)) {
        m_writer.writeCharacters(fit.mid(from, end - from));
        m_writer.writeEntityReference(QStringLiteral("#13"));
        from = end + 1;
    }
    m_writer.writeCharacters(from > 0 ? fit.mid(from) : fit);
    return *this;
}

} // namespace NARV::INTERNAL
