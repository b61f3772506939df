#pragma once

#include "scene/scenefile.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QLockFile;

namespace NARV::DEV {

class SceneDocument;

//! The file of the page: opens and saves it, and keeps unsaved work in a file of its own, so that a
//! crash or the end of the program loses nothing.
class SceneKeeper : public QObject
{
    Q_OBJECT

public:
    explicit SceneKeeper(SceneDocument &document, QObject *parent = nullptr);
    ~SceneKeeper() override;

    //! The file of the page; empty for a new page.
    const QString &path() const { return m_path; }

    //! An empty page without a file.
    void clear();
    //! Whether clear() or open() has last replaced work that was not saved.
    bool canTakeBack() const { return m_replaced.has_value(); }
    //! Brings that work back, in place of the page.
    void takeBack();
    //! Both: false with a reason that names the place, and nothing changed.
    bool open(const QString &path, QString &problem);
    bool save(const QString &path, QString &problem);

    //! Keeps unsaved work in this folder from now on, which is made if there is none.
    void keepUnsavedIn(const QString &folder);
    //! Work that a program which is gone has left unsaved; empty for none.
    QString findUnsaved() const;
    //! The file of the page that this work is of; empty for a new page.
    static QString pathOf(const QString &unsavedFile);
    //! Opens that work as unsaved work of the page's own file, or of none.
    bool recover(const QString &unsavedFile, QString &problem);
    void discard(const QString &unsavedFile);
    //! Writes the unsaved work now, if there is any.
    void keepUnsaved();

Q_SIGNALS:
    void pathChanged();

private:
    Scene scene() const;
    bool show(const Scene &scene, const QByteArray &text, QString &problem);
    void setPath(const QString &path);
    bool keepPath(QString &problem) const;
    void removeStaleLocks() const;

    struct Replaced
    {
        Scene scene;
        QString path;
    };

    std::optional<Replaced> unsavedWork() const;

    SceneDocument &m_document;
    QString m_path;
    std::optional<Replaced> m_replaced;
    QString m_folder;
    QString m_unsavedFile;
    std::unique_ptr<QLockFile> m_lock;
    QTimer m_timer;
};

} // namespace NARV::DEV
