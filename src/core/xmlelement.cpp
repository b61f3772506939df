#include "core/xmlelement_p.h"

#include <QXmlStreamWriter>

namespace NARV::INTERNAL {

static bool isXmlCharacter(ushort c)
{
    return (c >= 0x20 && c < 0xd800) || (c >= 0xe000 && c < 0xfffe) || c == '\t' || c == '\n' ||
           c == '\r';
}

static QString withXmlCharacters(QString text)
{
    const int size = text.size();
    for (int i = 0; i < size; ++i) {
        const QChar c = qAsConst(text).at(i);
        if (isXmlCharacter(c.unicode()))
            continue;
        if (c.isHighSurrogate() && i + 1 < size && qAsConst(text).at(i + 1).isLowSurrogate())
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
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
        attribute(name, value);
    return *this;
}

// A carriage return is written as a reference: a reader makes a line feed of any other.
XmlElement &XmlElement::text(const QString &text)
{
    const QStringList lines = withXmlCharacters(text).split(QLatin1Char('\r'));
    m_writer.writeCharacters(lines.first());
    for (int i = 1; i < lines.size(); ++i) {
        m_writer.writeEntityReference(QStringLiteral("#13"));
        m_writer.writeCharacters(lines.at(i));
    }
    return *this;
}

} // namespace NARV::INTERNAL
