#include "window/scenekeeper.h"

#include "data/testdata.h"
#include "scene/scenedocument.h"
#include "scene/scenefile.h"
#include "session/pluginsession.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QUuid>

#include <utility>

namespace NARV::DEV {

static const int keepInterval = 5000; // ms
static const QLatin1String unsavedSuffix(".unsaved");
static const QLatin1String lockSuffix(".lock");
static const QLatin1String pathSuffix(".path");
static const int longestPath = 4096; // bytes

SceneKeeper::SceneKeeper(SceneDocument &document, QObject *parent)
    : QObject(parent)
    , m_document(document)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(keepInterval);
    connect(&m_timer, &QTimer::timeout, this, &SceneKeeper::keepUnsaved);
    const auto startTimer = [this] {
        if (!m_folder.isEmpty() && !m_timer.isActive())
            m_timer.start();
    };
    connect(&document.undoStack(), &QUndoStack::indexChanged, this, startTimer);
    connect(&document, &SceneDocument::modifiedChanged, this, startTimer);
}

SceneKeeper::~SceneKeeper()
{
    keepUnsaved();
}

void SceneKeeper::setPath(const QString &path)
{
    m_path = path;
    m_document.testData().setBaseFolder(QFileInfo(path).absolutePath());
    keepUnsaved();
    Q_EMIT pathChanged();
}

Scene SceneKeeper::scene() const
{
    Scene scene;
    if (const auto *library = m_document.session().library())
        scene.pluginId = library->id();
    scene.page = m_document.page();
    for (const PlacedWidget *widget : m_document.widgets())
        scene.widgets += widget->state();
    scene.testData = m_document.testData().toJson();
    return scene;
}

bool SceneKeeper::show(const Scene &scene, const QByteArray &text, QString &problem)
{
    if (!m_document.testData().fromJson(scene.testData, problem)) {
        problem = SceneFile::withPosition(text, QLatin1String("data.") + problem);
        return false;
    }
    m_document.reset(scene.page, scene.widgets);
    const auto *library = m_document.session().library();
    if (library && !scene.pluginId.isEmpty() && library->id() != scene.pluginId)
        Q_EMIT m_document.notice(tr("The scene was made with the library %1").arg(scene.pluginId));
    return true;
}

std::optional<SceneKeeper::Replaced> SceneKeeper::unsavedWork() const
{
    if (!m_document.isModified())
        return {};
    return Replaced{scene(), m_path};
}

void SceneKeeper::clear()
{
    m_replaced = unsavedWork();
    m_document.reset({}, {});
    setPath({});
}

void SceneKeeper::takeBack()
{
    const std::optional<Replaced> work = std::exchange(m_replaced, {});
    QString problem;
    if (!work || !show(work->scene, {}, problem))
        return;
    m_document.setModified();
    setPath(work->path);
}

static bool readScene(const QString &path, QByteArray &text, Scene &scene, QString &problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QLatin1Char(' ') + file.errorString();
        return false;
    }
    text = file.read(SceneFile::mostBytes + 1);
    return SceneFile::fromText(text, scene, problem);
}

bool SceneKeeper::open(const QString &path, QString &problem)
{
    QByteArray text;
    Scene scene;
    const std::optional<Replaced> work = unsavedWork();
    bool isOpen = readScene(path, text, scene, problem);
    if (isOpen) {
        m_document.testData().setBaseFolder(QFileInfo(path).absolutePath());
        isOpen = show(scene, text, problem);
    }
    if (!isOpen) {
        m_document.testData().setBaseFolder(QFileInfo(m_path).absolutePath());
        problem = path + QLatin1Char(':') + problem;
        return false;
    }
    m_replaced = work;
    setPath(path);
    return true;
}

bool SceneKeeper::save(const QString &path, QString &problem)
{
    if (!SceneFile::save(path, scene(), problem))
        return false;
    m_document.setUnmodified();
    setPath(path);
    return true;
}

// Each program has a file of its own, which is locked as long as the program lives.
void SceneKeeper::keepUnsavedIn(const QString &folder)
{
    if (!QDir().mkpath(folder))
        return;
    m_folder = folder;
    m_unsavedFile =
        QDir(folder).filePath(QUuid::createUuid().toString(QUuid::WithoutBraces) + unsavedSuffix);
    m_lock = std::make_unique<QLockFile>(m_unsavedFile + lockSuffix);
    m_lock->setStaleLockTime(0);
    m_lock->tryLock();
    removeStaleLocks();
}

//! Of programs that crashed without unsaved work.
void SceneKeeper::removeStaleLocks() const
{
    const QDir folder(m_folder);
    for (const QString &name : folder.entryList({QLatin1Char('*') + lockSuffix}, QDir::Files)) {
        QLockFile lock(folder.filePath(name));
        lock.setStaleLockTime(0);
        lock.tryLock(); // removes it when it goes
    }
}

QString SceneKeeper::findUnsaved() const
{
    const QDir folder(m_folder);
    const QStringList names =
        folder.entryList({QLatin1Char('*') + unsavedSuffix}, QDir::Files, QDir::Time);
    for (const QString &name : names) {
        const QString path = folder.filePath(name);
        QLockFile lock(path + lockSuffix);
        lock.setStaleLockTime(0);
        if (path != m_unsavedFile && lock.tryLock())
            return path;
    }
    return {};
}

bool SceneKeeper::recover(const QString &unsavedFile, QString &problem)
{
    QByteArray text;
    Scene scene;
    if (!readScene(unsavedFile, text, scene, problem) || !show(scene, text, problem))
        return false;
    m_document.setModified();
    setPath(pathOf(unsavedFile));
    discard(unsavedFile);
    return true;
}

void SceneKeeper::discard(const QString &unsavedFile)
{
    QFile::remove(unsavedFile);
    QFile::remove(unsavedFile + pathSuffix);
}

QString SceneKeeper::pathOf(const QString &unsavedFile)
{
    QFile file(unsavedFile + pathSuffix);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.read(longestPath)) : QString();
}

bool SceneKeeper::keepPath(QString &problem) const
{
    QSaveFile file(m_unsavedFile + pathSuffix);
    const QByteArray path = m_path.toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(path) == path.size() && file.commit())
        return true;
    problem = file.errorString();
    return false;
}

void SceneKeeper::keepUnsaved()
{
    if (m_unsavedFile.isEmpty())
        return;
    QString problem;
    if (!m_document.isModified())
        discard(m_unsavedFile);
    else if (!SceneFile::save(m_unsavedFile, scene(), problem) || !keepPath(problem))
        Q_EMIT m_document.notice(tr("Unsaved work cannot be kept: %1").arg(problem));
}

} // namespace NARV::DEV
