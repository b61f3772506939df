#pragma once

#include "core/metadatakeys_p.h"

#include <NARV/INTERNAL/MetaDataChecker>

#include <QDebug>

namespace NARV::INTERNAL {

//! Where a value stands in the metadata. Made on the stack while reading, so that it costs
//! nothing until somebody asks for the text.
struct JsonPath
{
    const JsonPath *parent = nullptr;
    MetaDataKey key;
    int index = -1; //!< of an element of the array under key; -1 for the value itself

    //! Such as "MetaData.widgets[3].fields[1].minimum".
    QString toString() const;
};

//! Takes the faults that the readers find.
class MetaDataFaults
{
public:
    enum class Mode
    {
        LogFirst, //!< stop at the first fault and write its log records
        First,    //!< stop at the first fault
        All       //!< read on as far as it makes sense
    };

    explicit MetaDataFaults(Mode mode)
        : m_mode(mode)
    {
    }

    //! Nothing read from now on counts any more.
    bool stopped() const { return m_mode != Mode::All && !m_problems.isEmpty(); }
    //! The code of the first fault, 0 if there is none.
    int code() const { return m_problems.isEmpty() ? 0 : m_problems.constFirst().code; }
    const QVector<MetaDataProblem> &problems() const { return m_problems; }

    //! The plugin that the log records are about, as soon as it is known.
    void setPluginId(const QString &id) { m_pluginId = id; }
    //! Adds a fault; its message, if it has one, is what the log says of it.
    void add(int code, const JsonPath &path, const QString &message = {});
    void log(const QString &message) const;

private:
    Mode m_mode;
    QString m_pluginId;
    QVector<MetaDataProblem> m_problems;
};

//! The items as a debug stream writes them: separated by blanks, strings in quotes.
template<typename... Items>
QString logText(const Items &...items)
{
    QString text;
    {
        QDebug stream(&text);
        (stream << ... << items);
    }
    return text.trimmed();
}

} // namespace NARV::INTERNAL
