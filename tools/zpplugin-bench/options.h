#pragma once

#include <QSize>
#include <QString>

#include <optional>

//! What the command line asks for.
struct Options
{
    QString plugin;   //!< folder or library; may be empty, but not for a picture
    QString scene;    //!< a scene file; empty for none
    QString language; //!< empty for the usual one
    std::optional<bool> isRuntime;
    // For a picture only.
    QString picture; //!< the file to write; empty for the window
    QString widget;  //!< the id of the only widget; empty for all
    QSize size;      //!< of the widget, or of the page; not valid for its own size
    qint64 at = 0;   //!< milliseconds after the start
};

//! The options in the arguments, the first of which is the program. When there is nothing more to
//! do, since help was asked for or an argument is wrong, that has been printed and exitCode is set.
Options readOptions(const QStringList &arguments, std::optional<int> &exitCode);

//! Reports on standard error why the program can not do what it was asked to.
int usageError(const QString &reason);
