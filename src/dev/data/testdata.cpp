#include "data/testdata.h"

#include "data/alarmtable.h"
#include "data/datacommand.h"
#include "data/scenarioplayer.h"
#include "data/simulationclock.h"
#include "data/tagtable.h"
#include "data/testdatafile.h"
#include "data/trendstore.h"

#include <NARV/LogHandler>

#include <QScopedValueRollback>

namespace NARV::DEV {

TestData::TestData(QObject *parent)
    : QObject(parent)
    , m_clock(std::make_unique<SimulationClock>())
    , m_tags(std::make_unique<TagTable>())
    , m_trends(std::make_unique<TrendStore>(*m_tags, *m_clock))
    , m_alarms(std::make_unique<AlarmTable>(*m_tags, *m_clock))
    , m_scenarios(std::make_unique<ScenarioPlayer>(*this))
{
    connectParts();
}

TestData::~TestData() = default;

void TestData::connectParts()
{
    connect(m_clock.get(), &SimulationClock::advanced, this, &TestData::advance);
    connect(m_clock.get(), &SimulationClock::jumped, m_trends.get(), &TrendStore::addGap);
    connect(m_tags.get(), &TagTable::tagChanged, m_alarms.get(), &AlarmTable::check);
    connect(m_tags.get(), &TagTable::renamed, m_alarms.get(), &AlarmTable::renameTag);
    connect(m_tags.get(), &TagTable::renamed, m_trends.get(), &TrendStore::renameTag);
    connect(m_tags.get(), &TagTable::tagChanged, this, &TestData::tagChanged);
    connect(m_tags.get(), &TagTable::tagsChanged, this, &TestData::tagsChanged);
    connect(m_alarms.get(), &AlarmTable::alarmChanged, this, &TestData::alarmChanged);
    connect(m_tags.get(), &TagTable::modified, this, &TestData::noteModified);
    connect(m_alarms.get(), &AlarmTable::modified, this, &TestData::noteModified);
    connect(m_trends.get(), &TrendStore::modified, this, &TestData::noteModified);
}

void TestData::noteModified()
{
    if (m_isEditing)
        m_isModified = true;
    else if (!m_isReplaying)
        Q_EMIT modified();
}

void TestData::advance()
{
    m_tags->generate(m_clock->elapsed());
    m_trends->record();
}

TagTable &TestData::tags()
{
    return *m_tags;
}

TrendStore &TestData::trends()
{
    return *m_trends;
}

AlarmTable &TestData::alarms()
{
    return *m_alarms;
}

SimulationClock &TestData::clock()
{
    return *m_clock;
}

ScenarioPlayer &TestData::scenarios()
{
    return *m_scenarios;
}

QVariant TestData::tagValue(const QString &name) const
{
    const int row = m_tags->find(name);
    return row < 0 ? QVariant() : m_tags->value(row);
}

bool TestData::writeTag(const QString &name, const QVariant &value)
{
    const int row = m_tags->find(name);
    const QString problem = row < 0 ? tr("there is no such tag") : m_tags->write(row, value);
    if (problem.isEmpty())
        return true;
    LogHandler({}, __FILE__, __LINE__, __func__, "DATA").warning().debug().noquote()
        << tr("Tag “%1” was not written: %2").arg(name, problem);
    return false;
}

QVariant TestData::trendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                              unsigned int count, WidgetActionManager::TrendTimeFormat format) const
{
    return m_trends->samples(name, from, to, count, format);
}

QVector<AlarmInfo> TestData::activeAlarms() const
{
    return m_alarms->active();
}

void TestData::setBaseFolder(const QString &folder)
{
    m_tags->setBaseFolder(folder);
    m_trends->reload();
}

QJsonObject TestData::toJson() const
{
    return writeTestData(content());
}

TestDataContent TestData::content() const
{
    TestDataContent content;
    for (int row = 0; row < m_tags->rowCount(); ++row)
        content.tags.append(m_tags->tag(row));
    for (int row = 0; row < m_trends->rowCount(); ++row)
        content.trends.append(m_trends->trend(row));
    content.alarms = m_alarms->snapshot();
    return content;
}

void TestData::edit(const std::function<void()> &change)
{
    if (!m_history || m_isEditing)
        return change();
    const TestDataContent before = content();
    m_isModified = false;
    {
        const QScopedValueRollback<bool> editing(m_isEditing,
                                                 true); // a widget that hears may throw
        change();
    }
    auto step = std::make_unique<DataCommand>(*this, before, content());
    if (!step->isEmpty())
        m_history(std::move(step));
    else if (m_isModified)
        Q_EMIT modified();
}

bool TestData::fromJson(const QJsonObject &json, QString &problem)
{
    TestDataContent content;
    problem = readTestData(json, content);
    if (!problem.isEmpty())
        return false;
    m_scenarios->restore();
    m_alarms->replaceAll({}); // those of before are not to see the new tags
    m_tags->replaceAll(content.tags);
    m_trends->replaceAll(content.trends);
    m_alarms->replaceAll(content.alarms);
    return true;
}

void TestData::replay(const std::function<void()> &change)
{
    const QScopedValueRollback<bool> replaying(m_isReplaying, true);
    change();
}

static Tag moving(const QString &name, TagType type, GeneratorKind kind, int period, double minimum,
                  double maximum)
{
    Tag tag;
    tag.name = name;
    tag.type = type;
    tag.generator.kind = kind;
    tag.generator.period = period;
    tag.generator.minimum = minimum;
    tag.generator.maximum = maximum;
    return tag;
}

static QVector<Tag> defaultTags()
{
    Tag setpoint =
        moving(QStringLiteral("setpoint"), TagType::Double, GeneratorKind::None, 10000, 0, 100);
    setpoint.value = 50.0;
    Tag mode = moving(QStringLiteral("mode"), TagType::String, GeneratorKind::TextList, 4000, 0, 0);
    mode.generator.texts = QStringList{QStringLiteral("Automatic"), QStringLiteral("Manual"),
                                       QStringLiteral("Service")};
    return {
        moving(QStringLiteral("level"), TagType::Double, GeneratorKind::Sine, 20000, 0, 100),
        moving(QStringLiteral("temperature"), TagType::Float, GeneratorKind::RandomWalk, 250, 15,
               95),
        moving(QStringLiteral("speed"), TagType::Int, GeneratorKind::Ramp, 15000, 0, 1500),
        moving(QStringLiteral("running"), TagType::Bool, GeneratorKind::Square, 6000, 0, 1),
        moving(QStringLiteral("pieces"), TagType::UInt, GeneratorKind::Counter, 1000, 0, 999),
        moving(QStringLiteral("spectrum"), TagType::ArrayDouble, GeneratorKind::Noise, 500, 0, 10),
        setpoint,
        mode};
}

static QVector<Trend> defaultTrends()
{
    Trend level;
    level.name = level.tagName = QStringLiteral("level");
    Trend temperature;
    temperature.name = temperature.tagName = QStringLiteral("temperature");
    return {level, temperature};
}

static QVector<Alarm> defaultAlarms()
{
    Alarm level = defaultAlarm(QStringLiteral("level high"));
    level.info.description = TestData::tr("The tank is nearly full");
    level.info.severity = AlarmInfo::SeverityHigh;
    level.info.groups = QStringList{QStringLiteral("tank")};
    level.info.tagName = QStringLiteral("level");
    level.limit = {AlarmLimit::High, 90, 10};
    Alarm door = defaultAlarm(QStringLiteral("door open"));
    door.info.description = TestData::tr("A guard door was opened");
    door.info.severity = AlarmInfo::SeverityCritical;
    door.info.groups = QStringList{QStringLiteral("safety")};
    door.info.resetEnabled = true;
    door.info.blinkEnabled = true;
    return {level, door};
}

void TestData::loadDefaults()
{
    m_scenarios->restore();
    m_alarms->replaceAll({});
    m_tags->replaceAll(defaultTags());
    m_trends->replaceAll(defaultTrends());
    m_alarms->replaceAll(defaultAlarms());
}

} // namespace NARV::DEV
