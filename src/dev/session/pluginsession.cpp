#include "session/pluginsession.h"

#include "console/logrelay.h"
#include "probe/libraryfile.h"
#include "probe/probe.h"
#include "probe/process.h"
#include "session/librarywatch.h"
#include "session/lingeringcode.h"
#include "session/plugincopy.h"

#include <NARV/INTERNAL/MetaDataChecker>
#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/PluginPlatform>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>

#include <QCoreApplication>
#include <QFileInfo>
#include <QPluginLoader>
#include <QPointer>

#include <optional>

namespace NARV::DEV {

using INTERNAL::PluginLoader;
using INTERNAL::WidgetLibraryPluginUtils;
using Kind = LoadFailure::Kind;

static const int maxProblems = 20; //!< of the description, that are shown

namespace {

//! The library that is loaded.
struct Opened
{
    QString path; //!< as given
    PluginFile file;
    QString copy;
    LibraryWatch::Stamp stamp; //!< of the original when it was copied
};

} // namespace

class PluginSessionPrivate
{
    Q_DECLARE_TR_FUNCTIONS(NARV::DEV::PluginSession)

public:
    explicit PluginSessionPrivate(PluginSession *session)
        : q(session)
    {
    }

    bool open(const QString &newPath, bool isTried);
    LoadFailure unfit(const PluginFile &file) const;
    LoadFailure unfitMetaData(const QString &libraryPath) const;
    void probe(const PluginFile &file, const QString &copy);
    void judge(const PluginFile &file, const QString &copy, const PROBE::ProbeResult &result);
    bool load(const PluginFile &file, const QString &copy);
    bool start(const PluginFile &file, const QString &copy, QStringList &words);
    void bringBack(const std::optional<Opened> &former);
    QStringList heard(const PluginFile &file, const QVector<LogRecord> &records) const;
    bool fail(const LoadFailure &failure);
    void unload();
    void stopProbe();

    PluginSession *q;
    QString path;
    QString probeProgram;
    QStringList probeArguments;
    int probeSeconds = 0;
    QPointer<LogRelay> relay;
    bool autoReload = true;
    LibraryWatch watch;
    PluginCopies copies;
    std::unique_ptr<PROBE::Probe> runningProbe;
    std::unique_ptr<PluginLoader> loader;
    std::optional<Opened> opened;
    const INTERNAL::WidgetLibraryPluginData *data = nullptr; //!< null: nothing is loaded
};

bool PluginSessionPrivate::open(const QString &newPath, bool isTried)
{
    stopProbe();
    path = newPath;
    const PluginFile file(path);
    watch.watch(file.libraryPath);
    const LoadFailure reason = unfit(file);
    if (reason.kind != Kind::None)
        return fail(reason);
    QString problem;
    const QString copy = copies.make(file, problem);
    if (copy.isEmpty())
        return fail(LoadFailure::of(Kind::NotCopied, path, tr("The library could not be copied"),
                                    {problem}));
    if (!isTried || probeProgram.isEmpty())
        return load(file, copy);
    probe(file, copy);
    return true;
}

//! Why the file can not be a widget library for this machine, as far as reading it tells.
LoadFailure PluginSessionPrivate::unfit(const PluginFile &file) const
{
    if (!QFileInfo::exists(file.path))
        return LoadFailure::of(Kind::Missing, path, tr("There is no such file or folder"),
                               {file.path});
    if (!QFileInfo(file.libraryPath).isFile())
        return LoadFailure::of(Kind::NoLibrary, path,
                               tr("The folder has no library for this machine"),
                               {tr("Looked for %1").arg(file.libraryPath)});
    const auto library = PROBE::LibraryFile::read(file.libraryPath);
    const QString fault = library.whyNotFor(INTERNAL::PluginPlatform::running());
    if (!library.fault.isEmpty())
        return LoadFailure::of(Kind::NoUsableFile, path, tr("The file is no usable library"),
                               {fault});
    if (!fault.isEmpty())
        return LoadFailure::of(Kind::OtherMachine, path,
                               tr("The library is built for another machine"), {fault});
    return unfitMetaData(file.libraryPath);
}

LoadFailure PluginSessionPrivate::unfitMetaData(const QString &libraryPath) const
{
    const QPluginLoader library(libraryPath);
    if (library.metaData().isEmpty())
        return LoadFailure::of(Kind::NoPlugin, path, tr("The library is no plugin"),
                               {library.errorString()});
    QStringList words;
    for (const auto &problem : INTERNAL::MetaDataChecker::allProblems(library.metaData())) {
        const QLatin1String text(WidgetLibraryPluginUtils::errorToString(problem.code));
        words += tr("%1: error %2, %3").arg(problem.path, QString::number(problem.code), text);
        if (words.size() == maxProblems)
            break;
    }
    if (words.isEmpty())
        return {};
    return LoadFailure::of(Kind::MetaData, path, tr("The plugin's description has a fault"), words);
}

void PluginSessionPrivate::probe(const PluginFile &file, const QString &copy)
{
    runningProbe.reset(
        new PROBE::Probe({probeProgram, probeArguments, copy, probeSeconds, QStringList()}));
    QObject::connect(runningProbe.get(), &PROBE::Probe::finished, q,
                     [=](const PROBE::ProbeResult &result) { judge(file, copy, result); });
    Q_EMIT q->probingChanged();
    runningProbe->start();
}

void PluginSessionPrivate::judge(const PluginFile &file, const QString &copy,
                                 const PROBE::ProbeResult &result)
{
    // It is telling this.
    runningProbe.release()->deleteLater();
    Q_EMIT q->probingChanged();
    if (result.failure.isEmpty()) {
        load(file, copy);
        return;
    }
    QStringList words;
    for (const QString &line : QStringList(result.failure) + result.errors + result.lastWords)
        words += PROBE::demangledText(copies.asOriginal(file, line));
    static const QMap<QString, QPair<Kind, QString>> kinds{
        {QStringLiteral("start"), {Kind::Other, tr("The plugin could not be tried")}},
        {QStringLiteral("crash"), {Kind::Crash, tr("The plugin crashed when it was tried")}},
        {QStringLiteral("timeout"), {Kind::Hang, tr("The plugin hung when it was tried")}},
    };
    const auto [kind, title] =
        kinds.value(result.failureCode, {Kind::Other, tr("The plugin could not be loaded")});
    const Kind told = LoadFailure::kindOf(words);
    LoadFailure failure = LoadFailure::of(told == Kind::Other ? kind : told, path, title, words);
    failure.mayTry = kinds.contains(result.failureCode);
    fail(failure);
}

bool PluginSessionPrivate::load(const PluginFile &file, const QString &copy)
{
    const std::optional<Opened> former = opened;
    unload();
    QStringList words;
    if (!start(file, copy, words)) {
        bringBack(former);
        return fail(LoadFailure::of(LoadFailure::kindOf(words), path,
                                    tr("The plugin could not be loaded"), words));
    }
    opened = Opened{path, file, copy, watch.known()};
    copies.keepOnly({copy});
    Q_EMIT q->loaded();
    Q_EMIT q->opened();
    return true;
}

void PluginSessionPrivate::bringBack(const std::optional<Opened> &former)
{
    if (!former)
        return;
    // The code of the first copy has come to its end.
    QStringList words;
    QString problem;
    const QString copy = copies.make(PluginFile(former->copy), problem);
    if (copy.isEmpty() || !start(former->file, copy, words))
        return;
    opened = former;
    opened->copy = copy;
    Q_EMIT q->loaded();
}

bool PluginSessionPrivate::start(const PluginFile &file, const QString &copy, QStringList &words)
{
    QVector<LogRecord> records;
    QMetaObject::Connection hearing;
    if (relay) {
        relay->flush();
        hearing = QObject::connect(relay, &LogRelay::arrived, q,
                                   [&](const QVector<LogRecord> &batch) { records += batch; });
    }
    loader = std::make_unique<PluginLoader>();
    const bool isLoaded =
        file.isFolder ? loader->loadFromPluginDir(copy) : loader->loadFromPluginPath(copy, {});
    if (relay) {
        relay->flush();
        QObject::disconnect(hearing);
    }
    words = heard(file, records);
    if (!isLoaded)
        return false;
    data = loader->pluginData().first()->toWidgetLibraryPluginData();
    loader->init();
    return true;
}

QStringList PluginSessionPrivate::heard(const PluginFile &file,
                                        const QVector<LogRecord> &records) const
{
    QStringList words;
    for (const LogRecord &record : records)
        words += PROBE::demangledText(copies.asOriginal(file, record.text));
    return words;
}

bool PluginSessionPrivate::fail(const LoadFailure &failure)
{
    copies.keepOnly(opened ? QStringList(opened->copy) : QStringList());
    Q_EMIT q->failed(failure);
    return false;
}

void PluginSessionPrivate::unload()
{
    if (!data)
        return;
    Q_EMIT q->aboutToUnload();
    data = nullptr;
    unloadButKeepMemory(PluginFile(opened->copy).libraryPath, [this] { loader.reset(); });
    opened.reset();
}

void PluginSessionPrivate::stopProbe()
{
    if (!runningProbe)
        return;
    runningProbe.reset();
    Q_EMIT q->probingChanged();
}

PluginSession::PluginSession(QObject *parent)
    : QObject(parent)
    , d(new PluginSessionPrivate(this))
{
    qRegisterMetaType<LoadFailure>();
    connect(&d->watch, &LibraryWatch::replaced, this, [this] {
        if (d->autoReload)
            reload();
    });
}

PluginSession::~PluginSession()
{
    d->stopProbe();
    d->unload();
}

void PluginSession::setProbeCommand(const QString &program, const QStringList &arguments,
                                    int timeoutSeconds)
{
    d->probeProgram = program;
    d->probeArguments = arguments;
    d->probeSeconds = timeoutSeconds;
}

void PluginSession::setLogRelay(LogRelay *relay)
{
    d->relay = relay;
}

void PluginSession::setAutoReload(bool isOn)
{
    d->autoReload = isOn;
}

bool PluginSession::autoReload() const
{
    return d->autoReload;
}

bool PluginSession::open(const QString &path)
{
    return d->open(path, true);
}

bool PluginSession::openAnyway(const QString &path)
{
    return d->open(path, false);
}

bool PluginSession::reload()
{
    return !d->path.isEmpty() && d->open(QString(d->path), true);
}

void PluginSession::giveUp()
{
    d->stopProbe();
    if (!d->opened)
        return close();
    if (d->path == d->opened->path)
        return;
    d->path = d->opened->path;
    d->watch.watch(d->opened->file.libraryPath, d->opened->stamp);
}

void PluginSession::close()
{
    if (d->path.isEmpty())
        return;
    d->stopProbe();
    d->path.clear();
    d->watch.watch({});
    d->unload();
    d->copies.keepOnly({});
    Q_EMIT closed();
}

const QString &PluginSession::path() const
{
    return d->path;
}

const QString &PluginSession::loadedPath() const
{
    static const QString none;
    return d->opened ? d->opened->path : none;
}

bool PluginSession::isLoaded() const
{
    return d->data;
}

bool PluginSession::isProbing() const
{
    return d->runningProbe != nullptr;
}

const INTERNAL::WidgetLibraryPluginMetaInformation *PluginSession::library() const
{
    return d->data ? d->data->metaInformation() : nullptr;
}

NARV::WidgetLibraryPlugin *PluginSession::plugin() const
{
    return d->data ? d->data->instance() : nullptr;
}

} // namespace NARV::DEV
