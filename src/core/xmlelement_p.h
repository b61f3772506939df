#pragma once

#include <QPair>
#include <QString>
#include <QVector>

#include <initializer_list>
#include <utility>

class QXmlStreamWriter;

namespace NARV::INTERNAL {

//! Attributes that are always the same: names and values.
using XmlAttributes = QVector<QPair<QString, QString>>;

XmlAttributes xmlAttributes(std::initializer_list<std::pair<const char *, const char *>> pairs);

//! An element of a document, open as long as this object lives.
//!
//! What is written reads back as the same text, but for the characters that XML cannot carry: each
//! becomes U+FFFD. The writer itself would write nothing at all from there on.
class XmlElement
{
public:
    XmlElement(QXmlStreamWriter &writer, const QString &name, const XmlAttributes &fixed = {});
    XmlElement(const XmlElement &) = delete;
    XmlElement &operator=(const XmlElement &) = delete;
    ~XmlElement();

    XmlElement &attribute(const QString &name, const QString &value);
    XmlElement &attribute(const QString &name, int value);
    XmlElement &attributes(const XmlAttributes &attributes);
    XmlElement &text(const QString &text);
    //! The document has a fault and ends here.
    void leaveOpen() { m_isClosed = false; }

private:
    QXmlStreamWriter &m_writer;
    bool m_isClosed = true;
};

} // namespace NARV::INTERNAL
