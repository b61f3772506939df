#include "galleryhost.h"
#include "guardedtest.h"

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using FieldType = GalleryHost::Library::FieldType;

//! Fields that do not change the picture of a widget just by being set to another value, or need
//! others to be set to do so.
static const struct
{
    const char *name; // of the widget, and of the field that is set
    QVariant value;   // of the field; invalid if it tells in what the widget does
    QVariantMap start = {};
} fieldRows[] = {
    {"bar.alarmColor", QColor(Qt::cyan), {{u("value"), 99}}},
    {"gauge.arcWidth", 20, {{u("needleStyle"), 2}, {u("value"), 50}}},
    {"numericDisplay.warningColor", QColor(Qt::cyan), {{u("value"), 90}}},
    {"numericDisplay.alarmColor", QColor(Qt::cyan), {{u("value"), 99}}},
    {"numericDisplay.showLimits", false, {{u("value"), 99}}},
    {"numericInput.minimum", -10}, // the minus button comes to life
    {"numericInput.maximum", 0},
    {"numericInput.previousValue", {}},
    {"numericInput.step", {}},
    {"numericInput.confirm", {}},
    {"numericInput.confirmText", {}},
    {"numericInput.focusColor", {}},
    {"lamp.unknownColor", QColor(Qt::cyan), {{u("state"), 9}}},
    {"lamp.blink", {}},
    {"lamp.blinkState", {}},
    {"lamp.blinkPeriod", {}},
    {"pushButton.mode", {}},
    {"pushButton.holdTime", {}},
    {"pushButton.confirm", {}},
    {"pushButton.confirmText", {}},
    {"pushButton.activeColor", QColor(Qt::cyan), {{u("value"), true}}},
    {"pushButton.showImage", true, {{u("image"), u(GALLERY_IMAGE)}}},
    {"pushButton.image", u(GALLERY_IMAGE), {{u("showImage"), true}}},
    {"pushButton.imagePosition", 1, {{u("showImage"), true}, {u("image"), u(GALLERY_IMAGE)}}},
    {"selector.confirm", {}},
    {"selector.confirmText", {}},
    {"label.wordWrap", false, {{u("text"), u("Words that do not fit into one line")}}},
    {"trendChart.samples", {}},
    {"trendChart.refreshPeriod", {}},
    {"trendChart.pen1", u("")},
    {"trendChart.pen2", u("")},
    {"trendChart.timeDivisions", 2},
    {"trendChart.pen3Color", QColor(Qt::cyan), {{u("pen3"), u("x")}}},
    {"trendChart.pen4Color", QColor(Qt::cyan), {{u("pen4"), u("x")}}},
    {"alarmList.limitRows", true, {{u("rowLimit"), 1}}},
    {"alarmList.rowLimit", 1, {{u("limitRows"), true}}},
    {"alarmList.emptyText", u("-"), {{u("groups"), QStringList(u("none"))}}},
    {"alarmList.confirmAcknowledgeAll", {}},
    {"alarmList.confirmText", {}},
    {"alarmList.alarmCount", {}},
};

//! The gallery as a host meets it. The guard fails a widget that reads a field it does not have.
class tst_Gallery : public GuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isDescribed();
    void draws_data();
    void draws();
    void everyFieldShows_data();
    void everyFieldShows();
    void hasNoStrayRows();
    void titleIsOnePlainLine();
    void hintFollowsTag();
    void alarmListFollowsAlarms();
    void watchdogExpires();
    void watchdogRestsInEditor();

private:
    GalleryHost::Key latest(const QString &id) const
    {
        return {id, m_host->library().widgetsLatestVersion()[id].version().version()};
    }

    std::unique_ptr<GalleryHost> m_host;
};

void tst_Gallery::initTestCase()
{
    startGuard();
    m_host = std::make_unique<GalleryHost>();
    QCOMPARE(takeLog().size(), 1); // that it was loaded
}

// In all languages, and with a field of every type.
void tst_Gallery::isDescribed()
{
    QSet<int> types;
    for (const auto &widget : m_host->library().widgets()) {
        QCOMPARE(widget.display().keys().size(), 3);
        for (const auto &field : widget.fields()) {
            types.insert(field.type());
            QVERIFY2(field.display().keys().size() == 3, qPrintable(field.id()));
        }
    }
    QCOMPARE(types.size(), int(FieldType::Trend));
}

//! The number of pixels that are not white, inside an area or outside of it.
static int inkedPixels(const QImage &image, const QRect &area, bool inside)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (area.contains(x, y) == inside && image.pixelColor(x, y) != QColor(Qt::white))
                ++count;
        }
    }
    return count;
}

void tst_Gallery::draws_data()
{
    QTest::addColumn<GalleryHost::Key>("key");
    for (const auto &widget : m_host->library().widgets()) {
        const GalleryHost::Key key(widget.id(), widget.version().version());
        if (widget.showInPageGallery())
            QTest::addRow("%s %s", qPrintable(key.first), qPrintable(key.second)) << key;
    }
}

// Inside its borders, and whatever the values and the size.
void tst_Gallery::draws()
{
    QFETCH(GalleryHost::Key, key);
    QVERIFY(m_host->place(key));
    const QImage image = m_host->grab();
    const int margin = GalleryHost::margin;
    const QRect area = image.rect().adjusted(margin, margin, -margin, -margin);
    QVERIFY(inkedPixels(image, area, true) > 50);
    QCOMPARE(inkedPixels(image, area, false), 0);

    const auto fields = m_host->library().widgets()[key].fields();
    using Double = std::numeric_limits<double>;
    for (double extreme : {-Double::infinity(), -1e9, -1.0, 0.0, 0.5, 1e9, Double::max(),
                           Double::infinity(), Double::quiet_NaN()}) {
        QVariantMap values;
        for (const auto &field : fields) {
            if (field.type() == FieldType::Double)
                values.insert(field.id(), extreme);
            else if (field.type() == FieldType::Integer || field.type() == FieldType::Option)
                values.insert(field.id(), int(qBound(-1e9, extreme, 1e9)));
        }
        QVERIFY(m_host->place(key, values));
        for (const QSizeF &size : {QSizeF(0, 0), QSizeF(0.5, 100), QSizeF(100, 1), QSizeF(60, 60)})
            QVERIFY(!m_host->grab(size).isNull());
    }
}

//! Another value of the type of a field, to be seen.
static QVariant otherValue(const GalleryHost::Library::FieldMetaInformation &field,
                           const QVariant &value)
{
    switch (field.type()) {
    case FieldType::String:
        return u(field.id().endsWith(u("Format")) ? "mm" : "Other");
    case FieldType::StringList:
        return QStringList(u("Other")) + value.toStringList().mid(1);
    case FieldType::StringMap: {
        auto texts = value.value<QMap<int, QString>>();
        for (QString &text : texts)
            text = u(field.id().endsWith(u("Colors")) ? "cyan" : "Other");
        return QVariant::fromValue(texts);
    }
    case FieldType::Integer:
        return value.toInt() + 2;
    case FieldType::Option:
        return value.toInt() == 0 ? 1 : 0;
    case FieldType::Double:
        return value.toDouble() < 50 ? 60 : 40;
    case FieldType::Bool:
        return !value.toBool();
    case FieldType::Color:
        return QColor(Qt::cyan);
    case FieldType::Font:
        return QFont(u("Roboto"), 7);
    default:
        return u("tag");
    }
}

static QVector<NARV::AlarmInfo> someAlarms()
{
    QVector<NARV::AlarmInfo> alarms;
    for (auto state : {NARV::AlarmInfo::StateTriggeredNotAcknowledged,
                       NARV::AlarmInfo::StateTriggeredAcknowledged,
                       NARV::AlarmInfo::StateNotTriggeredNotAcknowledged}) {
        NARV::AlarmInfoData data;
        data.name = QString::number(alarms.size());
        data.severity = NARV::AlarmInfo::Severity(alarms.size() * 2 % 3);
        data.state = state;
        data.timestamp = QDateTime(QDate(2024, 5, 1), QTime(10, alarms.size()));
        data.acknowledgeEnabled = data.resetEnabled = true;
        alarms.append(NARV::AlarmInfo(data));
    }
    return alarms;
}

static const QVariantMap richValues{{u("title"), u("Title")},   {u("showSetpoint"), true},
                                    {u("prompt"), u("Prompt")}, {u("showBackground"), true},
                                    {u("showFrame"), true},     {u("pen1"), u("a")},
                                    {u("pen2"), u("b")}};

void tst_Gallery::everyFieldShows_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("fieldId");
    for (const auto &widget : m_host->library().widgetsLatestVersion()) {
        if (!widget.showInPageGallery())
            continue;
        for (const auto &field : widget.fields())
            QTest::addRow("%s.%s", qPrintable(widget.id()), qPrintable(field.id()))
                << widget.id() << field.id();
    }
}

void tst_Gallery::everyFieldShows()
{
    QFETCH(QString, id);
    QFETCH(QString, fieldId);
    const auto *row =
        std::find_if(std::begin(fieldRows), std::end(fieldRows), [&](const auto &any) {
            return u(any.name) == id + QLatin1Char('.') + fieldId;
        });
    const bool isSpecial = row != std::end(fieldRows);
    if (isSpecial && !row->value.isValid())
        return; // to be found in tst_galleryinput
    m_host->alarms = someAlarms();
    m_host->tags = {{u("tag"), true}};
    const auto fields = m_host->library().widgetsLatestVersion()[id].fields();
    QVariantMap start = isSpecial ? row->start : QVariantMap();
    for (auto it = richValues.begin(); it != richValues.end(); ++it) {
        if (fields.contains(it.key()))
            start.insert(it.key(), *it);
    }
    NARV::WidgetPrivate *widget = m_host->place(latest(id), start);
    const auto field = fields[fieldId];
    const QImage before = m_host->grab();
    const QVariant value = widget->fieldValues[fieldId];
    widget->setFieldValue(fieldId, isSpecial ? row->value : otherValue(field, value), true, true);
    QCoreApplication::processEvents();
    const QImage after = m_host->grab();
    QVERIFY2(after != before, "the field has no effect");
    if (!field.isMultiLanguageText() || field.id() == u("title"))
        return;
    widget->setFieldValue(fieldId + u(".font"), QFont(u("Roboto"), 6), true, true);
    QVERIFY2(m_host->grab() != after, "the font of the field has no effect");
}

void tst_Gallery::hasNoStrayRows()
{
    for (const auto &row : fieldRows) {
        const QStringList ids = u(row.name).split(QLatin1Char('.'));
        QVERIFY2(m_host->library().widgetsLatestVersion()[ids[0]].fields().contains(ids[1]),
                 row.name);
    }
}

void tst_Gallery::titleIsOnePlainLine()
{
    const auto drawn = [this](const char *title) {
        m_host->place(latest(u("gauge")), {{u("title"), u(title)}});
        return m_host->grab();
    };
    QCOMPARE(drawn("a\nb"), drawn("a b"));
    QVERIFY(drawn("<i></i>a") != drawn("a"));
}

void tst_Gallery::hintFollowsTag()
{
    m_host->tags = {{u("tag"), 1}};
    NARV::WidgetPrivate *input =
        m_host->place(latest(u("numericInput")), {{u("actualValueTag"), u("tag")}});
    const QImage before = m_host->grab();
    QCoreApplication::processEvents();
    QSignalSpy changes(m_host->scene(), &QGraphicsScene::changed);
    QTest::qWait(700);
    QCOMPARE(changes.size(), 0);
    m_host->tags = {{u("tag"), 2}};
    QTRY_VERIFY(!changes.isEmpty());
    QVERIFY(m_host->grab() != before);
    input->deinit();
}

void tst_Gallery::alarmListFollowsAlarms()
{
    m_host->alarms.clear();
    NARV::WidgetPrivate *list = m_host->place(latest(u("alarmList")));
    const QSizeF size(700, 300);
    const QImage empty = m_host->grab(size);
    const auto count = [list] { return list->fieldValues[u("alarmCount")].toInt(); };
    QCOMPARE(count(), 0);

    m_host->calls.clear();
    for (int i = 0; i < 100; ++i) {
        NARV::AlarmInfoData data;
        data.name = QString::number(i);
        data.state = NARV::AlarmInfo::StateTriggered;
        m_host->alarms.append(NARV::AlarmInfo(data));
        list->alarmEvent(m_host->alarms.last());
    }
    QTRY_COMPARE(count(), 100);
    QCOMPARE(m_host->calls, QStringList{u("alarms")});
    QVERIFY(m_host->grab(size) != empty);

    list->setFieldValue(u("lowestSeverity"), 6, true, true);
    QTRY_COMPARE(count(), 0);
    QCOMPARE(m_host->grab(size), empty);
    list->deinit();
}

static const QVariantMap impatient{{u("timeout"), 2}, {u("warningTime"), 1}};

void tst_Gallery::watchdogExpires()
{
    NARV::WidgetPrivate *watchdog = m_host->place(latest(u("sessionWatchdog")), impatient);
    QSignalSpy changes(watchdog, &NARV::WidgetPrivate::fieldIsChanged);
    const auto value = [watchdog](const char *id) {
        return watchdog->fieldValues[QLatin1String(id)];
    };
    QTRY_VERIFY(value("warning").toBool());
    QVERIFY(!value("expired").toBool());
    QTRY_VERIFY(value("expired").toBool());
    QVERIFY(!value("warning").toBool());
    QCOMPARE(value("statusText").toString(), u("Sitzung abgelaufen"));

    QTest::mouseClick(std::make_unique<QWidget>().get(), Qt::LeftButton);
    QTRY_VERIFY(!value("expired").toBool());
    QVERIFY(value("idleTime").toInt() < 2);

    watchdog->deinit();
    changes.clear();
    QVERIFY(!changes.wait(1100));
}

void tst_Gallery::watchdogRestsInEditor()
{
    m_host->insideProjectEditor = true;
    QSignalSpy changes(m_host->place(latest(u("sessionWatchdog")), impatient),
                       &NARV::WidgetPrivate::fieldIsChanged);
    QVERIFY(!changes.wait(1100));
    QVERIFY(inkedPixels(m_host->grab({64, 64}), QRect(20, 20, 64, 64), true) > 50); // its icon
    m_host->insideProjectEditor = false;
}

QTEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
