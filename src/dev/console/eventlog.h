#pragma once

#include <QAbstractTableModel>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! What went to and came from the widgets: a table of time, kind, widget and text; the oldest
//! entries go when it is full.
class ZPPLUGIN_DEV_EXPORT EventLog : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum class Kind
    {
        FieldWrite, //!< the widget itself wrote a field
        FieldChange, //!< the host wrote a field
        Alarm,
        Gesture,
        TagWrite,
        Life //!< made, initialised, resized, deleted
    };

    explicit EventLog(QObject *parent = nullptr);
    ~EventLog() override;

    //! Adds an entry; widget is its name on the page, empty for none. Cheap: views hear of new
    //! entries in batches.
    void add(Kind kind, const QString &widget, const QString &text);
};

} // namespace NARV::DEV
