#pragma once

#include "metadata/valuepath.h"

#include <QByteArray>
#include <QMap>
#include <QVector>

namespace ZPPluginTool {

//! A key that an object has already had.
struct DuplicateKey
{
    QString key;
    qint64 offset = 0;
    qint64 firstOffset = 0;
};

//! Why a text is no JSON; no message when it is.
struct JsonSyntaxError
{
    QString message;
    qint64 offset = 0;
};

//! Goes through a JSON text once, without recursion, and finds where wanted values stand.
//!
//! Memory grows with the number of wanted values and the keys of the open objects, not with the
//! text. Offsets are bytes from the start of the text.
class JsonScan
{
public:
    JsonScan();

    //! Asks for a value; gives the number under which run() finds it.
    int want(const ValuePath &path);
    //! Goes through the text, up to the first syntax error.
    JsonSyntaxError run(const QByteArray &json);

    //! Where the value starts, or the nearest value around it that is there.
    qint64 valueOffset(int wanted) const { return m_places[nearest(wanted)].valueOffset; }
    //! Where the key of the value starts, or the nearest value around it.
    qint64 keyOffset(int wanted) const;
    const QVector<DuplicateKey> &duplicateKeys() const { return m_duplicateKeys; }

private:
    class Handler;

    //! A wanted value, or one around a wanted value.
    struct Place
    {
        int parent = -1;
        QMap<QByteArray, int> members;
        QMap<int, int> elements;
        qint64 keyOffset = 0;
        qint64 valueOffset = 0;
        qint64 visit = -1; //!< when it was found last; an older one than the parent's is void
    };

    int nearest(int wanted) const;

    QVector<Place> m_places;
    QVector<DuplicateKey> m_duplicateKeys;
};

} // namespace ZPPluginTool

Q_DECLARE_TYPEINFO(ZPPluginTool::DuplicateKey, Q_MOVABLE_TYPE);
