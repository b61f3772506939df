#pragma once

#include <NARV/AlarmInfo>
#include <NARV/WidgetActionManager>

#include <QDateTime>
#include <QJsonObject>
#include <QObject>
#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

#include <functional>
#include <memory>

class QUndoCommand;

namespace NARV::DEV {

class AlarmTable;
class ScenarioPlayer;
class SimulationClock;
class TagTable;
class TrendStore;
struct TestDataContent;

//! The machine behind the bench's widgets: tags, trends and alarms, driven by one clock.
//!
//! Single-threaded. The tables are item models, so that a view can show and edit them.
class ZPPLUGIN_DEV_EXPORT TestData : public QObject
{
    Q_OBJECT

public:
    explicit TestData(QObject *parent = nullptr);
    ~TestData() override;

    TagTable &tags();
    TrendStore &trends();
    AlarmTable &alarms();
    SimulationClock &clock();
    ScenarioPlayer &scenarios();

    //! The value of a tag; invalid if there is no such tag or it has none.
    QVariant tagValue(const QString &name) const;
    //! Writes a tag as a widget does: converts to the tag's type and tells everybody. False if
    //! there is no such tag or the value does not convert; why is logged.
    bool writeTag(const QString &name, const QVariant &value);
    //! At most count samples of a trend from one time to another, as a widget gets them; invalid if
    //! there is no such trend.
    QVariant trendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                        unsigned int count, WidgetActionManager::TrendTimeFormat format) const;
    QVector<AlarmInfo> activeAlarms() const;

    //! Takes what a person does to the data as a step that can be undone. It is done already.
    using History = std::function<void(std::unique_ptr<QUndoCommand> step)>;
    //! Without one, which is empty, nothing can be undone.
    void setHistory(const History &history) { m_history = history; }
    //! To be called for what a person does. What changes of tags, trends and alarms goes into the
    //! history: what they are, not the values and states that they have.
    void edit(const std::function<void()> &change);
    bool isEditing() const { return m_isEditing; }
    //! A step of the history is being undone or redone.
    bool isReplaying() const { return m_isReplaying; }
    //! Undoes or redoes a step.
    void replay(const std::function<void()> &change);

    //! All that a scene file keeps: tags with their generators, alarms, trends; no history.
    QJsonObject toJson() const;
    //! Replaces everything. False, with nothing changed and a reason that says where, if malformed.
    bool fromJson(const QJsonObject &json, QString &problem);
    //! Replaces everything by a small machine with moving tags, two trends and two alarms.
    void loadDefaults();
    //! The folder of the scene file, where relative CSV files are looked for.
    void setBaseFolder(const QString &folder);

Q_SIGNALS:
    //! A tag has another value, or another quality.
    void tagChanged(const QString &name, const QVariant &value);
    //! Tags were added, removed or renamed.
    void tagsChanged();
    //! An alarm has another state, to be told to widgets.
    void alarmChanged(const NARV::AlarmInfo &alarm);
    //! Something that toJson() keeps has changed, by no step of the history.
    void modified();

private:
    void connectParts();
    TestDataContent content() const;
    void noteModified();
    void advance();

    const std::unique_ptr<SimulationClock> m_clock;
    const std::unique_ptr<TagTable> m_tags;
    const std::unique_ptr<TrendStore> m_trends;
    const std::unique_ptr<AlarmTable> m_alarms;
    const std::unique_ptr<ScenarioPlayer> m_scenarios;
    History m_history;
    bool m_isEditing = false;
    bool m_isModified = false; //!< by what is being edited
    bool m_isReplaying = false;
};

} // namespace NARV::DEV
