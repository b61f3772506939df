#pragma once

#include <zpplugin_export.h>

#include <QDebug>
#include <QScopedPointer>

namespace NARV {

class DebugPrivate;

//! A log record being written: its destruction hands it to the host. Obtained from a LogHandler
//! and written in one statement; one record belongs to one thread at a time.
class ZPPLUGIN_EXPORT Debug
{
public:
    //! An empty record with no source, file, function or category.
    explicit Debug(QtMsgType type);
    //! A second record with the same text, delivered on its own. The other one stays as it is,
    //! also when it is a temporary.
    Debug(const Debug &other);
    //! Delivers the record, unless its text is empty, no callback is installed or this thread is
    //! inside the callback already. Never throws.
    ~Debug();

    Debug &operator=(const Debug &) = delete;

    //! The stream to write the text to, owned by the record. As in Qt, items are separated by
    //! blanks and strings quoted unless switched off; the blank after the last item is removed.
    QDebug &debug();

private:
    friend class LogHandler;
    explicit Debug(DebugPrivate &dd);

    QScopedPointer<DebugPrivate> d_ptr;
    Q_DECLARE_PRIVATE(Debug)
};

} // namespace NARV
