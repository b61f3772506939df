#pragma once

#include <QJsonObject>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTimer>

namespace NARV::PROBE {

//! What is to be found out about a plugin by loading it.
struct ProbeRequest
{
    QString program;       //!< calls runProbe() if its arguments contain probeCommand
    QStringList arguments; //!< the program's own, before all others
    QString path;          //!< of the plugin's folder or its library
    int seconds = 10;      //!< how long it may take
    QStringList details;   //!< for the program's own examination
};

//! What was found out.
struct ProbeResult
{
    //! By the names that the loading process gives them, such as "metaData". What is missing was
    //! not reached.
    QJsonObject values;
    //! Why the plugin could not be loaded, or what it did to the process that loaded it; empty when
    //! all went well.
    QString failure;
    //! The kind of failure: "start" for no process, "load", "crash", "timeout", "architecture" for
    //! a file that this machine can not load, or "platform" for a folder without a library for this
    //! machine.
    QString failureCode;
    //! The errors in the log, without the one that is the failure.
    QStringList errors;
    //! What the plugin and the library said last: other log records and lines on standard error.
    QStringList lastWords;
};

//! Loads a plugin in a process of its own, which the plugin may crash or keep from answering.
//! Destroying the probe ends that process.
class Probe : public QObject
{
    Q_OBJECT

public:
    explicit Probe(const ProbeRequest &request, QObject *parent = nullptr);
    ~Probe() override;

    //! Returns at once; the result comes as finished().
    void start();
    //! Waits for the end of the process, and sees to it when it takes too long.
    ProbeResult run();

Q_SIGNALS:
    void finished(const NARV::PROBE::ProbeResult &result);

private:
    void end();
    void readReport();
    void readLog(const QJsonObject &record);
    void readOutput();
    void say(const QString &words);
    void judge();
    void failToLoad();
    void fail(const char *code, const QString &text);

    ProbeRequest m_request;
    ProbeResult m_result;
    QProcess m_process;
    QTimer m_timer;
    bool m_isTimeout = false;
};

} // namespace NARV::PROBE
