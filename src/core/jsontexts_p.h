#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

namespace NARV::INTERNAL {

//! A text as JSON; a null document for anything that is none.
inline QJsonDocument fromJson(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8());
}

//! Without blanks and line breaks. A byte-order mark is escaped: Qt's reader would take it off the
//! start of a text.
template<typename Container> // QJsonObject or QJsonArray
QString toCompactJson(const Container &container)
{
    return QString::fromUtf8(QJsonDocument(container).toJson(QJsonDocument::Compact))
        .replace(QChar(QChar::ByteOrderMark), QLatin1String("\\ufeff"));
}

} // namespace NARV::INTERNAL
