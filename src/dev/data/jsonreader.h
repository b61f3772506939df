#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! Takes typed values out of a JSON object and remembers the first fault with its place, such as
//! `tags[3].generator.period: 5 is not from 10 to 86400000`. After a fault all calls are without
//! effect; a value that is not there leaves what it is read into as it is.
class ZPPLUGIN_DEV_EXPORT JsonReader
{
public:
    //! The problem has to outlive the reader; it is empty as long as all is well.
    JsonReader(const QJsonObject &object, QString &problem, const QString &path = {});

    //! Hands the value under the key, if there is one, to read(value), which returns what is wrong
    //! with it, empty for nothing.
    template<typename Read>
    void value(const char *key, Read read)
    {
        const QJsonValue found = take(key);
        if (found.isUndefined())
            return;
        const QString reason = read(found);
        if (!reason.isEmpty())
            fail(key, reason);
    }
    //! Reports a key that is not there.
    JsonReader &need(const char *key);
    void text(const char *key, QString &out);
    void texts(const char *key, QStringList &out);
    void flag(const char *key, bool &out);
    void number(const char *key, double &out);
    void whole(const char *key, int &out, int minimum, int maximum);
    //! The index of a text among the choices.
    void choice(const char *key, int &out, const QStringList &choices);
    template<typename Enum>
    void choice(const char *key, Enum &out, const QStringList &choices)
    {
        int index = int(out);
        choice(key, index, choices);
        out = Enum(index);
    }
    //! Hands a reader of the object under the key, if there is one, to read().
    template<typename Read>
    void object(const char *key, Read read)
    {
        value(key, [&](const QJsonValue &found) {
            if (!found.isObject())
                return isNo("an object");
            JsonReader reader(found.toObject(), m_problem, place(key));
            read(reader);
            reader.finish();
            return QString();
        });
    }
    //! The same for each object of an array, also with its index.
    template<typename Read>
    void objects(const char *key, Read read)
    {
        const QJsonValue found = take(key);
        if (!found.isUndefined() && !found.isArray())
            fail(key, isNo("an array"));
        const QJsonArray array = found.toArray();
        for (int i = 0; i < array.size() && isGood(); ++i) {
            JsonReader reader(array.at(i).toObject(), m_problem,
                              QStringLiteral("%1[%2]").arg(place(key), QString::number(i)));
            if (!array.at(i).isObject())
                return reader.fail(nullptr, isNo("an object"));
            read(reader);
            reader.finish();
        }
    }
    //! Reports a key that nobody has asked for, so that a misspelt one is not lost in silence.
    void finish();

    bool isGood() const { return m_problem.isEmpty(); }
    //! Reports a fault at the key, or of the object itself if it is null.
    void fail(const char *key, const QString &reason);
    static QString isNo(const char *what);

private:
    QJsonValue take(const char *key);
    QString place(const char *key) const;

    QJsonObject m_object;
    QString &m_problem;
    QString m_path;
    QSet<QString> m_asked;
};

} // namespace NARV::DEV
