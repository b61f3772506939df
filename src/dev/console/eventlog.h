#pragma once

#include "console/recordtable.h"

#include <QTimer>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

enum class EventKind
{
    FieldWrite,  //!< the widget itself wrote a field
    FieldChange, //!< the host wrote a field
    Alarm,
    Gesture,
    TagWrite,
    Life //!< made, initialised, resized, deleted
};

//! One entry of the event log.
struct EventRecord
{
    qint64 time = 0; //!< milliseconds since the epoch
    EventKind kind = EventKind::Life;
    QString widget; //!< its name on the page; empty for none
    QString text;
};

//! What went to and came from the widgets: a table of time, kind, widget and text; the oldest
//! entries go when it is full.
class ZPPLUGIN_DEV_EXPORT EventLog : public RecordTable<EventRecord>
{
    Q_OBJECT

public:
    using Kind = EventKind;
    enum Column
    {
        TimeColumn,
        KindColumn,
        WidgetColumn,
        TextColumn,
        ColumnCount
    };

    explicit EventLog(QObject *parent = nullptr);
    ~EventLog() override;

    //! Adds an entry; widget is its name on the page, empty for none. Cheap: views hear of new
    //! entries in batches.
    void add(Kind kind, const QString &widget, const QString &text);
    //! Shows what was added up to now at once.
    void flush();
    void clear();

    //! All kinds, in the order in which they are offered.
    static QVector<Kind> kinds();
    //! What a person reads for a kind, such as "Field write".
    static QString kindName(Kind kind);

    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVector<EventRecord> m_pending;
    QTimer m_timer;
};

} // namespace NARV::DEV
