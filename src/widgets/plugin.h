#pragma once

#include <zpplugin_export.h>

#include <QObject>
#include <QScopedPointer>

namespace NARV {

class PluginPrivate;

//! The root object of a plugin: hooks around the host's start and stop.
//!
//! The host makes the object when it loads the plugin's library and destroys it when it unloads
//! the library, both on its main thread. Every plugin hears a hook before any plugin hears the
//! next one.
class ZPPLUGIN_EXPORT Plugin : public QObject
{
    Q_OBJECT

public:
    explicit Plugin(QObject *parent = nullptr);
    ~Plugin() override;

    //! All plugins are found; they are about to be loaded.
    virtual void aboutToLoad();
    //! Every plugin has heard aboutToLoad().
    virtual void load();
    //! The host is about to stop.
    virtual void aboutToUnload();
    //! Every plugin has heard aboutToUnload().
    virtual void unload();

    bool event(QEvent *event) override;

private:
    Q_DISABLE_COPY(Plugin)
    Q_DECLARE_PRIVATE(Plugin)
    const QScopedPointer<PluginPrivate> d_ptr;
};

} // namespace NARV
