#pragma once

#include "session/loadfailure.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QObject>
#include <QStringList>

#include <zpplugin_dev_export.h>

#include <memory>

namespace NARV {
class WidgetLibraryPlugin;
}

namespace NARV::DEV {

class LogRelay;
class PluginSessionPrivate;

//! The one widget library that the bench has open. Loads a copy of the file under a fresh name, so
//! that the author can build over the original; loads anew when that happens.
//!
//! What was open before stays open while a library is tried in a process of its own, and when that
//! fails. It goes only to make room for a library that can be loaded, as the resources of two would
//! mix; should loading still fail, it comes back.
class ZPPLUGIN_DEV_EXPORT PluginSession : public QObject
{
    Q_OBJECT

public:
    explicit PluginSession(QObject *parent = nullptr);
    ~PluginSession() override;

    //! The command that tries a library first: a program that calls runPluginProbe() when
    //! isPluginProbe() says so, and its own arguments. Without a program libraries are not tried.
    void setProbeCommand(const QString &program, const QStringList &arguments = {},
                         int timeoutSeconds = 10);
    //! Where to hear what the loader says, for LoadFailure::words; may be null. Not owned.
    void setLogRelay(LogRelay *relay);
    //! Whether a library that was replaced on disk is loaded anew on its own; it is at first.
    void setAutoReload(bool isOn);
    bool autoReload() const;

    //! Opens a plugin folder or a library file, in place of what is open. False if it failed at
    //! once; the outcome comes as opened() or failed().
    bool open(const QString &path);
    //! Loads without asking the probe.
    bool openAnyway(const QString &path);
    //! Loads the file at path() anew.
    bool reload();
    //! Gives up what could not be opened: path() is that of the library that is loaded. Closes if
    //! none is.
    void giveUp();
    void close();

    //! The path as given to open(), whether that failed or not; empty if nothing was opened.
    const QString &path() const;
    //! The path of the library that is loaded; empty for none.
    const QString &loadedPath() const;
    bool isLoaded() const;
    //! A library is being tried; opened() or failed() will come.
    bool isProbing() const;
    //! Null while nothing is loaded. Valid until aboutToUnload().
    const INTERNAL::WidgetLibraryPluginMetaInformation *library() const;
    NARV::WidgetLibraryPlugin *plugin() const;

Q_SIGNALS:
    //! Everything that came out of the plugin's code has to go now.
    void aboutToUnload();
    //! Another library, or the former one again.
    void loaded();
    //! What open() was asked for is loaded.
    void opened();
    //! What was open before still is.
    void failed(const NARV::DEV::LoadFailure &failure);
    void probingChanged();
    //! close() was called: nothing is open any more.
    void closed();

private:
    const std::unique_ptr<PluginSessionPrivate> d;
};

} // namespace NARV::DEV
