#pragma once

#include <QJsonObject>
#include <QObject>
#include <QProcess>
#include <QStringList>

namespace ZPPluginTool {

//! What is to be found out about a plugin by loading it.
struct ProbeRequest
{
    QString path;         //!< of its folder or its library
    QString language;     //!< of its texts, as for descriptionToJson()
    int seconds = 10;     //!< how long it may take
    bool inspect = false; //!< run its load functions and look at what it registers
};

//! What was found out.
struct ProbeResult
{
    //! By the names that the loading process gives them, such as "description". What is missing was
    //! not reached.
    QJsonObject values;
    //! Why the plugin could not be loaded, or what it did to the process that loaded it; empty when
    //! all went well.
    QString failure;
    //! The kind of failure: "load", "crash", "timeout", "architecture" for a file that this machine
    //! can not load, or "platform" for a folder without a library for this machine.
    QString failureCode;
    //! The errors in the log, without the one that is the failure.
    QStringList errors;
    //! What the plugin and the library said last: other log records and lines on standard error.
    QStringList lastWords;
};

//! Loads a plugin in a process of its own, which the plugin may crash or keep from answering.
class Probe : public QObject
{
    Q_OBJECT

public:
    explicit Probe(const ProbeRequest &request);

    //! Waits for the end of the process, and sees to it when it takes too long.
    ProbeResult run();

private:
    void readReport();
    void readLog(const QJsonObject &record);
    void readOutput();
    void say(const QString &words);
    void judge(bool isTimeout);
    void failToLoad();
    void fail(const char *code, const QString &text);

    ProbeRequest m_request;
    ProbeResult m_result;
    QProcess m_process;
};

} // namespace ZPPluginTool
