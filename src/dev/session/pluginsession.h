#pragma once

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QObject>
#include <QStringList>

#include <zpplugin_dev_export.h>

namespace NARV {
class WidgetLibraryPlugin;
}

namespace NARV::DEV {

//! Why a plugin could not be opened, in words for its author.
struct LoadFailure
{
    QString path;        //!< as given
    QString title;       //!< one line
    QStringList words;   //!< what the loader, or the process that tried it, has said
    QString advice;      //!< what to do next
    bool mayTry = false; //!< it failed in the probe only: openAnyway() loads it in this process
};

//! The one widget library that the bench has open. Loads a copy of the file under a fresh name, so
//! that the author can build over the original; notices when that happens.
class ZPPLUGIN_DEV_EXPORT PluginSession : public QObject
{
    Q_OBJECT

public:
    explicit PluginSession(QObject *parent = nullptr);
    ~PluginSession() override;

    //! Opens a plugin folder or a library file, in place of what is open. False if it failed at
    //! once; the outcome comes as loaded() or failed().
    bool open(const QString &path);
    //! Loads without asking the probe.
    bool openAnyway(const QString &path);
    //! Loads the same file anew.
    bool reload();
    void close();

    //! The path as given to open(); empty if nothing was opened.
    const QString &path() const;
    bool isLoaded() const;
    //! Null while nothing is loaded. Valid until aboutToUnload().
    const INTERNAL::WidgetLibraryPluginMetaInformation *library() const;
    NARV::WidgetLibraryPlugin *plugin() const;

Q_SIGNALS:
    //! Everything that came out of the plugin's code has to go now.
    void aboutToUnload();
    void loaded();
    //! Nothing is loaded now.
    void failed(const NARV::DEV::LoadFailure &failure);
};

} // namespace NARV::DEV
