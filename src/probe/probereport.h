#pragma once

#include <QJsonValue>
#include <QMutex>
#include <QString>

#include <cstdio>

namespace NARV::PROBE {

//! What the process that loads a plugin tells the one that started it: JSON objects, one a line,
//! each written at once so that nothing is lost when the plugin crashes. May be used by several
//! threads.
class ProbeReport
{
public:
    //! Takes the process's standard output for itself.
    ProbeReport();

    //! What is being done from now on, as in "crashed while ...".
    void stage(const QString &stage);
    //! Something that was found out; a later value of the same key replaces the earlier one.
    void value(const QString &key, const QJsonValue &value);
    //! The callback of the library's log; the report is the user data.
    static void log(int type, const QString &source, const QString &message, void *report);

private:
    FILE *m_stream;
    QMutex m_mutex;
};

} // namespace NARV::PROBE
