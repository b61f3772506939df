#include "probe/probe.h"

#include "probe/libraryfile.h"
#include "probe/probeprocess.h"
#include "probe/process.h"

#include <NARV/INTERNAL/PluginPlatform>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonDocument>

namespace NARV::PROBE {

static const int maxLastWords = 10;
static const int maxLineLength = 1000;

Probe::Probe(const ProbeRequest &request, QObject *parent)
    : QObject(parent)
    , m_request(request)
{
    m_process.setProgram(request.program);
    m_process.setArguments(request.arguments +
                           QStringList{probeCommand, QDir(request.path).absolutePath(),
                                       QString::number(request.seconds)} +
                           request.details);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_timer.setSingleShot(true);
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &Probe::readReport);
    connect(&m_process, &QProcess::readyReadStandardError, this, &Probe::readOutput);
    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &Probe::end);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end();
    });
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_isTimeout = true;
        m_process.kill();
    });
}

Probe::~Probe()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished();
}

void Probe::start()
{
    m_timer.start(m_request.seconds * 1000);
    m_process.start(QIODevice::ReadOnly);
}

ProbeResult Probe::run()
{
    QEventLoop loop;
    connect(this, &Probe::finished, &loop, &QEventLoop::quit);
    // Not before the loop runs: a process that does not start is an end at once.
    QTimer::singleShot(0, this, &Probe::start);
    loop.exec();
    return m_result;
}

void Probe::end()
{
    m_timer.stop();
    readReport();
    readOutput();
    judge();
    Q_EMIT finished(m_result);
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

void Probe::judge()
{
    const QString stage =
        m_result.values.value(QLatin1String("stage")).toString(QStringLiteral("starting"));
    const bool isFinished = m_result.values.contains(QLatin1String("isFinished"));
    const bool isLoaded = m_result.values.contains(QLatin1String("loadingTimeMs"));
    if (m_process.error() == QProcess::FailedToStart)
        fail("start", QStringLiteral("could not start %1: %2")
                          .arg(m_process.program(), m_process.errorString()));
    else if (m_isTimeout)
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
        LibraryFile::read(library.filePath()).whyNotFor(INTERNAL::PluginPlatform::running());
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

} // namespace NARV::PROBE
