#include "plugin/probe.h"

#include "plugin/libraryfile.h"
#include "plugin/probecommand.h"
#include "plugin/unresolvedsymbols.h"
#include "system.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTimer>

namespace ZPPluginTool {

static const int maxLastWords = 10;
static const int maxLineLength = 1000;

Probe::Probe(const ProbeRequest &request)
    : m_request(request)
{
    QStringList arguments{probeCommand, QDir(request.path).absolutePath(), request.language,
                          QString::number(request.seconds)};
    if (request.inspect)
        arguments += QStringLiteral("inspect");
    m_process.setProgram(QCoreApplication::applicationFilePath());
    m_process.setArguments(arguments);
    m_process.setStandardInputFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &Probe::readReport);
    connect(&m_process, &QProcess::readyReadStandardError, this, &Probe::readOutput);
}

ProbeResult Probe::run()
{
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
            &QEventLoop::quit);
    m_process.start(QIODevice::ReadOnly);
    if (!m_process.waitForStarted()) {
        fail("load", QStringLiteral("could not start %1: %2")
                         .arg(m_process.program(), m_process.errorString()));
        return m_result;
    }
    timer.start(m_request.seconds * 1000);
    if (m_process.state() != QProcess::NotRunning)
        loop.exec();
    const bool isTimeout = m_process.state() != QProcess::NotRunning;
    m_process.kill();
    m_process.waitForFinished();
    readReport();
    readOutput();
    judge(isTimeout);
    return m_result;
}

void Probe::readReport()
{
    m_process.setReadChannel(QProcess::StandardOutput);
    while (m_process.canReadLine()) {
        const QJsonObject line = QJsonDocument::fromJson(m_process.readLine()).object();
        for (auto it = line.begin(); it != line.end(); ++it) {
            if (it.key() == QLatin1String("log"))
                readLog(it->toObject());
            else
                m_result.values.insert(it.key(), it.value());
        }
    }
}

void Probe::readLog(const QJsonObject &record)
{
    const int type = record.value(QLatin1String("type")).toInt();
    const QString message = record.value(QLatin1String("message")).toString();
    if (type == QtCriticalMsg)
        m_result.errors += message;
    else
        say(message);
}

void Probe::readOutput()
{
    m_process.setReadChannel(QProcess::StandardError);
    const qint64 patience = m_process.state() == QProcess::NotRunning ? 0 : maxLineLength;
    while (m_process.canReadLine() || m_process.bytesAvailable() > patience)
        say(QString::fromLocal8Bit(m_process.readLine(maxLineLength)).trimmed());
}

void Probe::say(const QString &words)
{
    if (words.isEmpty())
        return;
    m_result.lastWords += words;
    if (m_result.lastWords.size() > maxLastWords)
        m_result.lastWords.removeFirst();
}

void Probe::judge(bool isTimeout)
{
    const QString stage =
        m_result.values.value(QLatin1String("stage")).toString(QStringLiteral("starting"));
    const bool isFinished = m_result.values.contains(QLatin1String("isFinished"));
    const bool isLoaded = m_result.values.contains(QLatin1String("description"));
    if (isTimeout)
        fail("timeout", QStringLiteral("did not answer within %1 s while %2")
                            .arg(QString::number(m_request.seconds), stage));
    else if (m_process.exitStatus() == QProcess::CrashExit)
        fail("crash", QStringLiteral("%1 while %2").arg(crashText(m_process.exitCode()), stage));
    else if (!isFinished)
        fail("crash", QStringLiteral("ended the process with exit code %1 while %2")
                          .arg(QString::number(m_process.exitCode()), stage));
    else if (!isLoaded)
        failToLoad();
}

void Probe::failToLoad()
{
    QString error = m_result.errors.isEmpty() ? QString() : m_result.errors.takeLast();
    // What was logged before is about the same error.
    m_result.lastWords = m_result.errors + m_result.lastWords;
    m_result.errors.clear();

    const QFileInfo library(m_result.values.value(QLatin1String("libraryPath")).toString());
    const QString start = QStringLiteral("Error loading the plugin %1: ").arg(library.filePath());
    if (!error.startsWith(start))
        return fail("load", error);
    if (!library.isFile())
        return fail("platform",
                    QStringLiteral("there is no library %1, which this program could load")
                        .arg(QDir(m_request.path).relativeFilePath(library.filePath())));
    // The header of the file says more than the loader can, if it is to blame.
    const QString fault =
        LibraryFile::read(library.filePath()).whyNotFor(NARV::INTERNAL::PluginPlatform::running());
    if (!fault.isEmpty())
        return fail("architecture", fault);
    error.remove(0, start.size());
    fail("load", demangledText(error.replace(library.filePath(), library.fileName())));
}

void Probe::fail(const char *code, const QString &text)
{
    m_result.failureCode = QLatin1String(code);
    m_result.failure = text;
}

} // namespace ZPPluginTool
