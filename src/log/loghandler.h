#pragma once

#include <zpplugin_export.h>

#include <NARV/Debug>

#include <QScopedPointer>
#include <QString>

namespace NARV {

class LogHandlerPrivate;

//! Where log records start: names their origin and opens a record of a level.
//!
//!     LogHandler(pluginId, __FILE__, __LINE__, __func__, "GENERAL").warning().debug() << "text";
//!
//! May be used by several threads at once. File, function and category are not copied: they
//! outlive the handler and its records, as string literals do.
class ZPPLUGIN_EXPORT LogHandler
{
public:
    //! No source, file, function or category; line 0.
    LogHandler();
    //! Category "default". The source is the id of the plugin concerned, or empty; file and
    //! function may be null, the line is 0 when unknown.
    LogHandler(const QString &source, const char *file, int line, const char *function);
    //! With a category word such as "GENERAL"; it may be null.
    LogHandler(const QString &source, const char *file, int line, const char *function,
               const char *category);
    virtual ~LogHandler();

    Debug debug() const;
    Debug info() const;
    Debug warning() const;
    Debug critical() const;
    //! A stream that discards everything.
    QNoDebug noDebug() const;

private:
    Debug record(QtMsgType type) const;

    const QScopedPointer<LogHandlerPrivate> d_ptr;
    Q_DECLARE_PRIVATE(LogHandler)
    Q_DISABLE_COPY(LogHandler)
};

//! Installs the callback that gets every record of this process from now on: Qt's message type
//! number, the source, the text made with the message pattern, and userData as given here.
//!
//! It is called on the thread that logs, by several threads at once and with no lock held.
//! Records logged inside it by the same thread are dropped; an exception it throws is discarded.
//! Callback and user data are replaced one after the other: a record completed meanwhile may
//! give the new callback the old user data (null at first), so install while no other thread logs.
ZPPLUGIN_EXPORT void narvInstallLogMessageHandlerPrivate(
    void (*handler)(int type, const QString &source, const QString &message, void *userData),
    void *userData);
//! Removes the callback: records are dropped. A call that another thread has begun still ends.
ZPPLUGIN_EXPORT void narvUninstallLogMessageHandlerPrivate();

//! Replaces the message pattern of this process; any thread.
//!
//! Placeholders: %{MESSAGE} %{TYPE} %{CATEGORY} %{FILE} %{LINE} %{FUNCTION} %{PID} %{THREAD},
//! %{TIME} (local time in ISO form) or %{TIME format} (a QDateTime format, of which the first 256
//! characters count), and the conditions %{IF-NOT-INFO} %{IF-CATEGORY} %{IF-DEBUG} %{IF-INFO}
//! %{IF-WARNING} %{IF-CRITICAL}, which hide what follows up to %{ENDIF} and do not nest. Other
//! placeholders print nothing, other text is printed as it stands. The default is
//! "[%{TIME}]%{IF-NOT-INFO}[%{TYPE}]%{ENDIF}%{IF-CATEGORY}[%{CATEGORY}]%{ENDIF}: %{MESSAGE}".
ZPPLUGIN_EXPORT void narvSetLogMessagePattern(const QString &pattern);

} // namespace NARV
