#include "data/jsonreader.h"

#include <QCoreApplication>

namespace NARV::DEV {

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::JsonReader", text);
}

JsonReader::JsonReader(const QJsonObject &object, QString &problem, const QString &path)
    : m_object(object)
    , m_problem(problem)
    , m_path(path)
{
}

QJsonValue JsonReader::take(const char *key)
{
    m_asked.insert(QString::fromLatin1(key));
    return isGood() ? m_object.value(QLatin1String(key)) : QJsonValue(QJsonValue::Undefined);
}

QString JsonReader::place(const char *key) const
{
    const QString name = QString::fromLatin1(key);
    return m_path.isEmpty() || name.isEmpty() ? m_path + name
                                              : QStringLiteral("%1.%2").arg(m_path, name);
}

void JsonReader::fail(const char *key, const QString &reason)
{
    if (isGood())
        m_problem = QStringLiteral("%1: %2").arg(place(key), reason);
}

QString JsonReader::isNo(const char *what)
{
    return tr("is not %1").arg(QString::fromLatin1(what));
}

JsonReader &JsonReader::need(const char *key)
{
    if (!m_object.contains(QLatin1String(key)))
        fail(key, tr("is missing"));
    return *this;
}

void JsonReader::text(const char *key, QString &out)
{
    value(key, [&out](const QJsonValue &found) {
        if (!found.isString())
            return isNo("a text");
        out = found.toString();
        return QString();
    });
}

void JsonReader::texts(const char *key, QStringList &out)
{
    value(key, [&out](const QJsonValue &found) {
        QStringList read;
        for (const QJsonValue &element : found.toArray()) {
            if (!element.isString())
                return isNo("an array of texts");
            read.append(element.toString());
        }
        out = read;
        return found.isArray() ? QString() : isNo("an array of texts");
    });
}

void JsonReader::flag(const char *key, bool &out)
{
    value(key, [&out](const QJsonValue &found) {
        out = found.toBool();
        return found.isBool() ? QString() : isNo("true or false");
    });
}

void JsonReader::number(const char *key, double &out)
{
    value(key, [&out](const QJsonValue &found) {
        out = found.toDouble();
        return found.isDouble() ? QString() : isNo("a number");
    });
}

void JsonReader::whole(const char *key, int &out, int minimum, int maximum)
{
    value(key, [&](const QJsonValue &found) {
        const double wanted = found.toDouble();
        if (!found.isDouble() || wanted < minimum || wanted > maximum || wanted != int(wanted))
            return tr("is not a whole number from %1 to %2").arg(minimum).arg(maximum);
        out = int(wanted);
        return QString();
    });
}

void JsonReader::choice(const char *key, int &out, const QStringList &choices)
{
    value(key, [&](const QJsonValue &found) {
        const int index = found.isString() ? choices.indexOf(found.toString()) : -1;
        if (index < 0)
            return tr("is none of %1").arg(choices.join(QLatin1String(", ")));
        out = index;
        return QString();
    });
}

void JsonReader::finish()
{
    for (auto it = m_object.constBegin(); it != m_object.constEnd(); ++it) {
        if (!m_asked.contains(it.key()))
            return fail(it.key().left(40).toLatin1().constData(), tr("is not known here"));
    }
}

} // namespace NARV::DEV
